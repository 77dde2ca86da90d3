#include "workbench/scenario/log_lines.h"

#include <gmock/gmock.h>

namespace quor::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(LogLines, StripTheStamps) {
  const LogLines lines = ReadLogLines(
      "2009/03/07 08:05:09.042 Initialize\r\n"
      "2009/03/07 08:05:09.042  two blanks\n");
  EXPECT_THAT(lines.texts, ElementsAre("Initialize", " two blanks"));
  EXPECT_EQ(lines.firstError, "");
  EXPECT_TRUE(ReadLogLines("").texts.empty());
}

TEST(LogLines, NoticeAWrongStamp) {
  for (const char* content :
       {"Initialize\n", "2009/3/07 08:05:09.042 x\n", "2009/03/07 08:05:09.42 x\n",
        "2009/03/07 08:05:09.042x\n", "2009-03-07 08:05:09.042 x\n", "2009/03/07 08:05:09.042 x",
        "2009/03/07 08:05:09.042 x\n\n",
        "2009/03/07 08:05:09.042 x\n2009/03/07 08:05:09.041 y\n"}) {
    EXPECT_NE(ReadLogLines(content).firstError, "") << content;
  }
}

TEST(LogLines, DifferencesShowBothSides) {
  EXPECT_EQ(DescribeDifference({"a", "b"}, {"a", "b"}), "");
  EXPECT_THAT(DescribeDifference({"a", "b"}, {"a", "c", "d"}),
              HasSubstr("  expected: b\n  seen:     c\n    d\n"));
  EXPECT_THAT(DescribeDifference({"a"}, {"a", "b"}), HasSubstr("expected: (end)\n  seen:     b\n"));
  EXPECT_THAT(DescribeDifference({"a"}, {}), HasSubstr("expected: a\n  seen:     (end)\n"));
}

}  // namespace
}  // namespace quor::workbench
