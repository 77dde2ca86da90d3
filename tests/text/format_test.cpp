#include "text/format.h"

#include <gtest/gtest.h>

#include <climits>

namespace quor {
namespace {

TEST(Format, BehavesLikePrintf) {
  EXPECT_EQ(Format("0x%08X %d %u %c%%", 0x80004005u, -7, 7u, 'x'), "0x80004005 -7 7 x%");
  EXPECT_EQ(Format("[%5d|%-5s|%.2s]", 42, "ab", "abc"), "[   42|ab   |ab]");
  EXPECT_EQ(Format("%s", ""), "");
  const std::string longer(100'000, 'x');
  EXPECT_EQ(Format("<%s>", longer.c_str()), '<' + longer + '>');
}

TEST(DecimalText, ReachesTheLimits) {
  EXPECT_EQ(DecimalText(LLONG_MIN), L"-9223372036854775808");
  EXPECT_EQ(DecimalText(0), L"0");
}

}  // namespace
}  // namespace quor
