#include "telephone/control_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

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

struct Situation {
  uint8_t states[3];  // of line 1, line 2 and the cell side
  uint8_t cidLine;

  bool Rings() const { return std::ranges::count(states, 2) == 3; }
  bool OtherInCall(int button) const {
    const auto inCall = [](uint8_t state) { return state == 3 || state == 4; };
    return std::ranges::count_if(states, inCall) > (inCall(states[button]) ? 1 : 0);
  }
};

std::ostream& operator<<(std::ostream& out, const Situation& s) {
  return out << +s.states[0] << +s.states[1] << +s.states[2] << " call on " << +s.cidLine;
}

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
  desk.phone.Dialler().StoreBoxText(L"123");
  for (int states = 0; states < 7 * 7 * 7; ++states) {
    const auto digit = [&](int place) { return static_cast<uint8_t>(states / place % 7); };
    for (const uint8_t cidLine : Bytes{0, 1, 2, 17, 18, 255}) {
      const Situation s = {{digit(49), digit(7), digit(1)}, cidLine};
      for (int button = 0; button < 3; ++button) {
        const auto set = [&] {
          desk.SetStates(s.states[0], s.states[1], s.states[2]);
          desk.state.savedState = {0, 1, 1, 1, 0, 0, 0};
          desk.state.caller.cidLine = cidLine;
        };
        const auto& told = kTold[s.states[button]];
        const bool answers = s.Rings() && (cidLine == 1 || cidLine == 2 || cidLine == 17);
        const bool announced = cidLine == kButtonLines[button];
        set();
        ASSERT_EQ(Click(desk, kButtonLines[button]), answers            ? Deed::Answer
                                                     : GetParam() >= 14 ? told.onRibbon
                                                                        : told.onToolbar)
            << s << " button " << button;
        set();
        for (const bool withAnswer : {false, true}) {
          const Says caption = withAnswer && announced && s.Rings() ? Says::Answer : told.caption;
          ASSERT_EQ(GetLineCaption(desk.state, button, withAnswer),
                    kCaptions[button][static_cast<int>(caption)])
              << s << " button " << button;
          ASSERT_EQ(IsControlEnabled(desk.state, kButtonControls[button], withAnswer),
                    told.enabled || (withAnswer && announced && !s.OtherInCall(button)))
              << s << " button " << button;
        }
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
