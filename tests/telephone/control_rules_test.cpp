#include "telephone/control_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "tests/telephone/telephone_desk.h"

// Captions, enabled flags and clicks of the buttons, for every state, with and without ribbon, and
// for every line that a call can arrive on.

namespace quor {
namespace {

enum class Deed { Nothing, Answer, HangUp, Take, Release, Dial };
enum class Says { Call, Disconnect, Cancel, Answer };

// By the state of the button's own line, while no call is announced.
constexpr struct {
  Deed onToolbar;
  Deed onRibbon;
  Says caption;
  bool enabled;
} kTold[7] = {
    {Deed::Nothing, Deed::Nothing, Says::Call, false},
    {Deed::Take, Deed::Dial, Says::Call, true},
    {Deed::Nothing, Deed::Nothing, Says::Call, false},
    {Deed::HangUp, Deed::HangUp, Says::Disconnect, true},
    {Deed::Nothing, Deed::Nothing, Says::Disconnect, false},
    {Deed::Release, Deed::Nothing, Says::Cancel, true},
    {Deed::Nothing, Deed::Nothing, Says::Disconnect, false},
};

constexpr uint8_t kButtonLines[] = {1, 2, 17};
constexpr int kButtonControls[] = {1, 2, 4};
constexpr int kCaptions[3][4] = {
    {1106, 1108, 1109, 1114}, {1110, 1112, 1113, 1115}, {1140, 1142, 1143, 1148}};

// Clicks and returns the visible effect.
Deed Click(CTelephoneDesk& desk, uint8_t lineType) {
  DialRecord& request = desk.records.dial[static_cast<size_t>(SlotFromLineType(lineType))];
  request = {9, 3, "123"};  // left over
  desk.tick += 1000;
  const TelephoneRecord before = desk.state.record;
  desk.posts = 0;
  const bool done = desk.phone.Lines().Click(lineType);
  if (desk.state.record != before) {
    EXPECT_TRUE(done);
    return desk.phone.Lines().GetLineState(lineType) == 5 ? Deed::Take : Deed::Release;
  }
  EXPECT_EQ(done, desk.posts == 1);
  if (!done) return Deed::Nothing;
  if (request.lineType == 9) return Deed::HangUp;
  EXPECT_EQ(request.lineType, lineType);
  EXPECT_EQ(desk.state.pendingClearLine, lineType);
  return request.numberLength == 0 ? Deed::Answer : Deed::Dial;
}

class LineButtons : public testing::TestWithParam<int> {};

TEST_P(LineButtons, SayAndDoWhatTheirStateTells) {
  CTelephoneDesk desk(GetParam());
  desk.BeQuiet();
  desk.phone.Dialler().StoreDialText(L"123");
  const auto inCall = [](uint8_t state) { return state == 3 || state == 4; };
  for (int i = 0; i < 7 * 7 * 7 * 3; ++i) {
    const size_t button = static_cast<size_t>(i) % 3;
    const auto state = [i](int place) { return static_cast<uint8_t>(i / 3 / place % 7); };
    const std::array<uint8_t, 3> states = {state(49), state(7), state(1)};
    const bool rings = std::ranges::count(states, 2) == 3;
    const auto calls = std::ranges::count_if(states, inCall);
    const auto& told = kTold[states[button]];
    for (const uint8_t cidLine : Bytes{0, 1, 2, 17, 18, 255}) {
      SCOPED_TRACE(testing::Message() << +states[0] << +states[1] << +states[2] << ", button "
                                      << button << ", call on " << +cidLine);
      const bool announced = cidLine == kButtonLines[button];
      const auto set = [&] {
        desk.SetStates(states[0], states[1], states[2]);
        desk.state.savedState = {0, 1, 1, 1, 0, 0, 0};
        desk.state.caller.cidLine = cidLine;
      };
      Deed deed = GetParam() >= kRibbonVersion ? told.onRibbon : told.onToolbar;
      if (rings && (cidLine == 1 || cidLine == 2 || cidLine == 17)) deed = Deed::Answer;
      set();
      ASSERT_EQ(Click(desk, kButtonLines[button]), deed);
      set();
      for (const bool withAnswer : {false, true}) {
        const Says caption = withAnswer && announced && rings ? Says::Answer : told.caption;
        ASSERT_EQ(GetLineCaption(desk.state, static_cast<int>(button), withAnswer),
                  kCaptions[button][static_cast<size_t>(caption)]);
        const bool othersInCall = calls > (inCall(states[button]) ? 1 : 0);
        ASSERT_EQ(IsControlEnabled(desk.state, kButtonControls[button], withAnswer),
                  told.enabled || (withAnswer && announced && !othersInCall));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BothGenerations, LineButtons,
                         testing::Values(kToolbarVersion, kRibbonVersion));

TEST(Controls, TheOtherFourFollowTheirOwnBytes) {
  TelephoneState state;
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<uint8_t>(value);
    state.record = {byte, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(IsControlEnabled(state, 0, true), value == 1);
    state.record = {0, 0, 0, 0, 0, 0, byte};
    EXPECT_EQ(IsControlEnabled(state, 3, false), value == 1);
    state.record = {0, 0, 0, 0, 0, byte, 0};
    EXPECT_EQ(IsControlEnabled(state, 5, false), value == 1);
  }
  EXPECT_TRUE(IsControlEnabled(state, 6, false));
  for (const int other : {-1, 7, 1000}) {
    EXPECT_FALSE(IsControlEnabled(state, other, true));
    EXPECT_EQ(GetLineCaption(state, other, true), 0);
    EXPECT_FALSE(IsCellItemEnabled(state, other));
  }
}

}  // namespace
}  // namespace quor
