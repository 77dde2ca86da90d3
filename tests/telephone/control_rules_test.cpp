#include "telephone/control_rules.h"

#include <gtest/gtest.h>

#include "tests/telephone/telephone_desk.h"

// Captions, enabled flags and clicks of the buttons, for every state, with and without ribbon, and
// for every line that a call can arrive on.

namespace quor {
namespace {

enum class Deed { Nothing, Answer, HangUp, Take, Release, Dial };
enum class Says { Call, Disconnect, Cancel, Answer };

constexpr uint8_t kButtonLines[] = {1, 2, 17};
constexpr int kButtonControls[] = {1, 2, 4};
constexpr int kCaptions[3][4] = {
    {1106, 1108, 1109, 1114}, {1110, 1112, 1113, 1115}, {1140, 1142, 1143, 1148}};

struct Situation {
  uint8_t states[3];  // of line 1, line 2 and the cell side
  uint8_t cidLine;

  bool Rings() const { return states[0] == 2 && states[1] == 2 && states[2] == 2; }
  bool OtherInCall(int button) const {
    for (int other = 0; other < 3; ++other) {
      if (other != button && (states[other] == 3 || states[other] == 4)) return true;
    }
    return false;
  }

  Deed ToldDeed(int button, bool ribbon) const {
    if (Rings() && (cidLine == 1 || cidLine == 2 || cidLine == 17)) return Deed::Answer;
    switch (states[button]) {
      case 1:
        return ribbon ? Deed::Dial : Deed::Take;
      case 3:
        return Deed::HangUp;
      case 5:
        return ribbon ? Deed::Nothing : Deed::Release;
      default:
        return Deed::Nothing;
    }
  }
  Says ToldCaption(int button, bool withAnswer) const {
    if (withAnswer && Rings() && cidLine == kButtonLines[button]) return Says::Answer;
    if (states[button] <= 2) return Says::Call;
    return states[button] == 5 ? Says::Cancel : Says::Disconnect;
  }
  bool ToldEnabled(int button, bool withAnswer) const {
    if (states[button] == 1 || states[button] == 3 || states[button] == 5) return true;
    return withAnswer && cidLine == kButtonLines[button] && !OtherInCall(button);
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
        set();
        ASSERT_EQ(Click(desk, kButtonLines[button]), s.ToldDeed(button, GetParam() >= 14))
            << s << " button " << button;
        set();
        for (const bool withAnswer : {false, true}) {
          ASSERT_EQ(GetLineCaption(desk.state, button, withAnswer),
                    kCaptions[button][static_cast<int>(s.ToldCaption(button, withAnswer))])
              << s << " button " << button;
          ASSERT_EQ(IsControlEnabled(desk.state, kButtonControls[button], withAnswer),
                    s.ToldEnabled(button, withAnswer))
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
