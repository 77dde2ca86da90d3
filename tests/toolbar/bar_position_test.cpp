#include "toolbar/bar_position.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

constexpr ScreenArea kScreen = {0, 0, 1920, 1040};

ToolBarRecord Floating(int left, int top) {
  return {1, 400, 30, left, top, 0, kBarIsFloating, 1};
}

TEST(BarPosition, IsTakenFromARecordThatABarHasWritten) {
  EXPECT_TRUE(TellsPosition(Floating(0, 0)));
  ToolBarRecord unread = Floating(0, 0);
  unread.read = 0;
  EXPECT_FALSE(TellsPosition(unread));
  EXPECT_FALSE(TellsPosition({1, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(BarPosition, IsTheTopWhereTheNumberIsNone) {
  ToolBarRecord record = Floating(0, 0);
  for (const int32_t position : {0, 1, 2, 3, 4}) {
    record.position = position;
    EXPECT_EQ(BarPosition(record), position);
  }
  for (const int32_t position : {-1, 5, 6, 1000}) {
    record.position = position;
    EXPECT_EQ(BarPosition(record), kBarDockedTop);
  }
}

TEST(BarPosition, AFloatingBarComesBackOntoTheScreen) {
  EXPECT_EQ(FloatingCorner(Floating(700, 500), kScreen), (ScreenPoint{700, 500}));
  EXPECT_EQ(FloatingCorner(Floating(4000, -90), kScreen), (ScreenPoint{1520, 0}));
  EXPECT_EQ(FloatingCorner(Floating(-2147483647, 2147483647), kScreen), (ScreenPoint{0, 1010}));
}

}  // namespace
}  // namespace quor
