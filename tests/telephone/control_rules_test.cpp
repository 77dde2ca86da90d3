#include <gtest/gtest.h>

#include "telephone_desk.h"

// Captions, enabled flags and clicks of the buttons agree, for every state, with and without
// ribbon, and for every line that a call can arrive on.

namespace quor {
namespace {

enum class Deed { Nothing, Answer, HangUp, Take, Release, Dial };
enum class Says { Call, Disconnect, Cancel, Answer };

struct Situation {
  uint8_t line1, line2, cell, cidLine;

  uint8_t Of(int button) const { return button == 0 ? line1 : button == 1 ? line2 : cell; }
  bool Rings() const { return line1 == 2 && line2 == 2 && cell == 2; }
  bool OtherInCall(int button) const {
    for (int other = 0; other < 3; ++other) {
      if (other != button && (Of(other) == 3 || Of(other) == 4)) return true;
    }
    return false;
  }
};

constexpr uint8_t kButtonLines[] = {1, 2, 17};
constexpr int kButtonControls[] = {1, 2, 4};

template <typename Body>
void EverySituation(Body body) {
  for (uint8_t line1 = 0; line1 < 7; ++line1) {
    for (uint8_t line2 = 0; line2 < 7; ++line2) {
      for (uint8_t cell = 0; cell < 7; ++cell) {
        for (const uint8_t cidLine : Bytes{0, 1, 2, 17, 18, 255}) {
          body(Situation{line1, line2, cell, cidLine});
        }
      }
    }
  }
}

std::ostream& operator<<(std::ostream& out, const Situation& s) {
  return out << +s.line1 << +s.line2 << +s.cell << " call on " << +s.cidLine;
}

void Set(CTelephoneDesk& desk, const Situation& s) {
  desk.SetStates(s.line1, s.line2, s.cell);
  desk.state.savedState = {0, 1, 1, 1, 0, 0, 0};
  desk.state.caller.cidLine = s.cidLine;
}

// Clicks and returns the visible effect.
Deed Click(CTelephoneDesk& desk, uint8_t lineType) {
  const auto slot = static_cast<size_t>(SlotFromLineType(lineType));
  desk.records.dial[slot] = {};
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
  const DialRecord& request = desk.records.dial[slot];
  if (request.lineType == 0) return Deed::HangUp;
  EXPECT_EQ(request.lineType, lineType);
  return request.numberLength == 0 ? Deed::Answer : Deed::Dial;
}

Deed ToldDeed(const Situation& s, int button, bool ribbon) {
  if (s.Rings() && (s.cidLine == 1 || s.cidLine == 2 || s.cidLine == 17)) return Deed::Answer;
  switch (s.Of(button)) {
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

Says ToldCaption(const Situation& s, int button, bool withAnswer) {
  if (withAnswer && s.Rings() && s.cidLine == kButtonLines[button]) return Says::Answer;
  if (s.Of(button) <= 2) return Says::Call;
  return s.Of(button) == 5 ? Says::Cancel : Says::Disconnect;
}

bool ToldEnabled(const Situation& s, int button, bool withAnswer) {
  if (s.Of(button) == 1 || s.Of(button) == 3 || s.Of(button) == 5) return true;
  return withAnswer && s.cidLine == kButtonLines[button] && !s.OtherInCall(button);
}

constexpr int kCaptions[3][4] = {
    {1106, 1108, 1109, 1114}, {1110, 1112, 1113, 1115}, {1140, 1142, 1143, 1148}};

Deed PromisedBy(Says says, bool ribbon) {
  switch (says) {
    case Says::Call:
      return ribbon ? Deed::Dial : Deed::Take;
    case Says::Disconnect:
      return Deed::HangUp;
    case Says::Cancel:
      return Deed::Release;
    case Says::Answer:
      return Deed::Answer;
  }
  return Deed::Nothing;
}

// The cases listed in docs/telephone-rules.md under "Buttons that do nothing", and no others.
bool IsListed(const Situation& s, int button, bool withAnswer, bool ribbon) {
  const uint8_t own = s.Of(button);
  const bool announced = withAnswer && s.cidLine == kButtonLines[button] && !s.OtherInCall(button);
  const bool saysCall = announced && !s.Rings() && (own == 0 || own == 2);
  const bool saysDisconnect = announced && (own == 4 || own > 5);
  const bool saysCancel = ribbon && own == 5;
  return saysCall || saysDisconnect || saysCancel;
}

class LineButtons : public testing::TestWithParam<int> {};

TEST_P(LineButtons, SayDoAndKeepTheirWord) {
  const bool ribbon = GetParam() >= 14;
  CTelephoneDesk desk(GetParam());
  desk.BeQuiet();
  desk.phone.Dialler().StoreBoxText(L"123");
  EverySituation([&](const Situation& s) {
    for (int button = 0; button < 3; ++button) {
      Set(desk, s);
      const Deed deed = Click(desk, kButtonLines[button]);
      ASSERT_EQ(deed, ToldDeed(s, button, ribbon)) << s << " button " << button;
      for (const bool withAnswer : {false, true}) {
        Set(desk, s);
        const Says says = ToldCaption(s, button, withAnswer);
        const bool enabled = ToldEnabled(s, button, withAnswer);
        ASSERT_EQ(GetLineCaption(desk.state, button, withAnswer),
                  kCaptions[button][static_cast<int>(says)])
            << s << " button " << button;
        ASSERT_EQ(IsControlEnabled(desk.state, kButtonControls[button], withAnswer), enabled)
            << s << " button " << button;
        // A button that shows "Answer" is enabled, and a click on it answers.
        if (says == Says::Answer) {
          ASSERT_TRUE(enabled && deed == Deed::Answer) << s;
        }
        const bool breaksItsWord = enabled && deed != PromisedBy(says, ribbon);
        ASSERT_EQ(breaksItsWord, IsListed(s, button, withAnswer, ribbon))
            << s << " button " << button << " with answer " << withAnswer;
      }
    }
  });
}

INSTANTIATE_TEST_SUITE_P(BothGenerations, LineButtons,
                         testing::Values(kToolbarVersion, kRibbonVersion));

TEST(Controls, TheOtherFourFollowTheirOwnBytes) {
  TelephoneState state;
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<uint8_t>(value);
    state.record = {byte, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(IsControlEnabled(state, 0, true), value == 1);
    EXPECT_FALSE(IsControlEnabled(state, 3, true));
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
