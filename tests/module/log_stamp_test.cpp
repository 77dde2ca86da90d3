#include "module/log_stamp.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

TEST(LogStamp, PadsEveryField) {
  const LogTime early{2009, 3, 7, 8, 5, 9, 42};
  EXPECT_EQ(LogStamp(early), "2009/03/07 08:05:09.042 ");
  EXPECT_EQ(LogFileName(early), "catlog20090307.txt");
  const LogTime late{2031, 12, 31, 23, 59, 58, 999};
  EXPECT_EQ(LogStamp(late), "2031/12/31 23:59:58.999 ");
  EXPECT_EQ(LogFileName(late), "catlog20311231.txt");
}

}  // namespace
}  // namespace quor
