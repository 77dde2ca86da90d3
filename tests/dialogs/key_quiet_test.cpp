#include "dialogs/key_quiet.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

constexpr uint8_t kSpace = 0x20;
constexpr uint8_t kOther = 'A';

class KeyQuiet : public testing::Test {
 protected:
  bool Down(uint32_t time, uint8_t key = kSpace) {
    return m_quiet.Admits(KeyStroke::Down, key, false, time);
  }
  bool Repeat(uint32_t time, uint8_t key = kSpace) {
    return m_quiet.Admits(KeyStroke::Down, key, true, time);
  }
  bool Up(uint32_t time, uint8_t key = kSpace) {
    return m_quiet.Admits(KeyStroke::Up, key, true, time);
  }
  bool Character(uint32_t time, bool repeated = false) {
    return m_quiet.Admits(KeyStroke::Character, 0, repeated, time);
  }

  CKeyQuiet m_quiet;
};

TEST_F(KeyQuiet, EveryStrokeBeginsTheHalfSecondAgain) {
  EXPECT_FALSE(Down(10'000)) << "never in front";
  m_quiet.Begin(10'000);
  EXPECT_FALSE(Down(10'499));
  EXPECT_FALSE(Character(10'499));
  EXPECT_FALSE(Up(10'600));
  EXPECT_FALSE(Down(11'099, kOther));
  EXPECT_FALSE(Character(11'598));
  EXPECT_TRUE(Down(12'098));
  EXPECT_TRUE(Character(12'098));
  EXPECT_TRUE(Up(12'100));
  EXPECT_TRUE(Down(12'101, kOther)) << "typing in the window itself";
  m_quiet.End();
  EXPECT_FALSE(Down(20'000));
  m_quiet.Begin(20'000);
  EXPECT_FALSE(Up(20'001)) << "pressed for another window";
  EXPECT_FALSE(Down(20'002));
}

TEST_F(KeyQuiet, AHeldKeyNeverCountsUntilItIsPressedAgain) {
  m_quiet.Begin(0);
  for (const uint32_t time : {900u, 930u, 960u}) {  // after the longest repeat delay
    EXPECT_FALSE(Repeat(time));
    EXPECT_FALSE(Character(time, true));
  }
  EXPECT_TRUE(Down(1'460, kOther));
  EXPECT_FALSE(Repeat(1'461));
  EXPECT_FALSE(Up(1'470));
  EXPECT_TRUE(Down(1'480));
  EXPECT_TRUE(Repeat(2'000));
  EXPECT_TRUE(Character(2'000, true));
  EXPECT_TRUE(Up(2'010));
}

TEST_F(KeyQuiet, AStrokeThatWaitedInTheQueueCountsFromWhenItWasStruck) {
  m_quiet.Begin(0xFFFFFF00);  // the tick count wraps around during the test
  EXPECT_FALSE(Down(0xFFFFF000));
  EXPECT_FALSE(Down(0xFFFFFFFF));
  EXPECT_FALSE(Down(0xFFFFFF10)) << "late, and no reason to wait less";
  EXPECT_FALSE(Down(498));
  EXPECT_TRUE(Down(998));
}

}  // namespace
}  // namespace quor
