#include <gtest/gtest.h>

#include "telephone_desk.h"

// Checks the line rules for every state against a second formulation: line by line in code, where
// the product has a table.

namespace quor {
namespace {

constexpr uint8_t kStates = 7;  // 0 to 6: the named states and an unknown one
constexpr uint8_t kCellSub = 0x0A;

struct Telling {
  TelephoneRecord live;
  TelephoneRecord saved;
  uint32_t pending;
  bool clears;
};

// A line is held; the other two are reported as a and b.
void TellHeld(Telling& t, uint8_t TelephoneRecord::*a, uint8_t reportedA,
              uint8_t TelephoneRecord::*b, uint8_t reportedB, uint8_t dial) {
  t.live.*a = reportedA == 1 ? 2 : reportedA;
  t.live.*b = reportedB == 1 ? 2 : reportedB;
  t.saved.*a = reportedA;
  t.saved.*b = reportedB;
  t.saved.dialState = t.saved.dialState2 = dial;
  t.saved.lineAvailable = 1;
  t.live.dialState = t.live.dialState2 = t.live.lineAvailable = 1;
}

void TellPending(Telling& t, uint8_t l1, uint8_t l2, uint8_t c) {
  const bool cell = t.pending >= 17 && t.pending <= 20;
  t.clears = (t.pending == 1 && l1 == 1) || (t.pending == 2 && l2 == 1) || (cell && c == 1);
  if (t.clears) t.pending = 0;
}

Telling TellToolbar(Telling t, uint8_t l1, uint8_t l2, uint8_t dial, uint8_t c, uint8_t sub) {
  using R = TelephoneRecord;
  if (t.live.line1State == 5 && l1 == 1) {
    TellHeld(t, &R::line2State, l2, &R::cellState, c, dial);
  } else if (t.live.line2State == 5 && l2 == 1) {
    TellHeld(t, &R::line1State, l1, &R::cellState, c, dial);
  } else if (t.live.cellState == 5 && c == 1) {
    TellHeld(t, &R::line1State, l1, &R::line2State, l2, dial);
  } else {
    TellPending(t, l1, l2, c);
    const uint8_t free = l1 == 1 || l2 == 1 || c == 1;
    t.live = {dial, l1, l2, c, sub, free, dial};
  }
  return t;
}

Telling TellRibbon(Telling t, uint8_t l1, uint8_t l2, uint8_t dial, uint8_t c, uint8_t sub) {
  const bool free = l1 == 1 || l2 == 1 || c == 1;
  const uint8_t box = free ? 1 : dial;
  t.live = {box, l1, l2, c, sub, free, box};
  TellPending(t, l1, l2, c);
  return t;
}

// Calls `body` with every combination of three states.
template <typename Body>
void EveryTriple(Body body) {
  for (uint8_t a = 0; a < kStates; ++a) {
    for (uint8_t b = 0; b < kStates; ++b) {
      for (uint8_t c = 0; c < kStates; ++c)
        body(a, b, c);
    }
  }
}

class LineReports : public testing::TestWithParam<int> {};

TEST_P(LineReports, EveryReportOnEveryRecord) {
  CTelephoneDesk desk(GetParam());
  desk.BeQuiet();
  const auto tell = GetParam() < 14 ? TellToolbar : TellRibbon;
  const TelephoneRecord saved = {9, 11, 12, 13, 14, 15, 16};
  for (const uint32_t pending : {0, 1, 2, 17, 20, 3}) {
    EveryTriple([&](uint8_t s1, uint8_t s2, uint8_t sc) {
      EveryTriple([&](uint8_t l1, uint8_t l2, uint8_t c) {
        const auto dial = static_cast<uint8_t>((l1 + l2 + c) % 3);
        const Telling before{{0, s1, s2, sc, 0x15, 0, 0}, saved, pending, false};
        const Telling after = tell(before, l1, l2, dial, c, kCellSub);
        desk.state.record = before.live;
        desk.state.savedState = saved;
        desk.state.pendingClearLine = pending;
        desk.posts = 0;
        desk.phone.Lines().SetUSBState(l1, l2, dial, c, kCellSub);
        if (desk.state.record == after.live && desk.state.savedState == after.saved &&
            desk.state.pendingClearLine == after.pending && desk.posts == after.clears) {
          return;
        }
        ADD_FAILURE() << "record " << +s1 << +s2 << +sc << " report " << +l1 << +l2 << +c
                      << " pending " << pending;
      });
    });
  }
}

INSTANTIATE_TEST_SUITE_P(BothGenerations, LineReports,
                         testing::Values(kToolbarVersion, kRibbonVersion));

// Whatever is reported for the other lines while a line is held, releasing it restores the saved
// record with the last reports for the others. A report that changes the held line ends the hold.
TEST(HeldLine, SurvivesIdleReportsOnlyAndComesBackWhole) {
  CTelephoneDesk desk;
  desk.BeQuiet();
  uint8_t TelephoneRecord::*const lines[] = {
      &TelephoneRecord::line1State, &TelephoneRecord::line2State, &TelephoneRecord::cellState};
  EveryTriple([&](uint8_t s1, uint8_t s2, uint8_t sc) {
    EveryTriple([&](uint8_t l1, uint8_t l2, uint8_t c) {
      const uint8_t reports[] = {l1, l2, c};
      for (size_t line = 0; line < 3; ++line) {
        const TelephoneRecord start = {0, s1, s2, sc, 6, 1, 0};
        if (start.*lines[line] != 1) continue;
        desk.state.record = start;
        desk.tick += 1000;
        const uint32_t lineType = line == 2 ? 18 : static_cast<uint32_t>(line) + 1;
        ASSERT_TRUE(desk.phone.Lines().SetLineState(lineType, 5));
        ASSERT_EQ(desk.state.savedState, start);
        for (const auto any : lines)
          ASSERT_NE(desk.state.record.*any, 1);
        // Skip a line that the base itself reports as taken: it is not held by the add-in.
        if (s1 == 5 || s2 == 5 || sc == 5) continue;

        desk.phone.Lines().SetUSBState(l1, l2, 0, c, 9);
        const bool held = desk.state.record.*lines[line] == 5;
        ASSERT_EQ(held, reports[line] == 1 || reports[line] == 5);
        if (reports[line] != 1) continue;

        TelephoneRecord expected = {0, l1, l2, c, 6, 1, 0};
        expected.*lines[line] = start.*lines[line];
        ASSERT_TRUE(desk.phone.Lines().SetLineState(lineType, 1));
        ASSERT_EQ(desk.state.record, expected);
      }
    });
  });
}

TEST(LineState, TakesAndReleasesOnceADebounceTime) {
  CTelephoneDesk desk;
  CLineControl& lines = desk.phone.Lines();
  desk.configuration.delayBtnEvent = 500;
  desk.SetStates(1, 1, 1);
  desk.state.lastLineClickTime = 0xFFFFFF00;  // the tick count wraps around
  for (const uint32_t tooSoon : {0xFFFFFF00u, 0xFFFFFFF0u, 500u - 0x100u - 1u}) {
    desk.tick = tooSoon;
    EXPECT_FALSE(lines.SetLineState(1, 5)) << tooSoon;
  }
  desk.tick += 1;
  EXPECT_TRUE(lines.SetLineState(1, 5));
  EXPECT_EQ(desk.Deeds(), (std::vector<std::string>{"post 1 0"}));
  desk.tick += 499;
  EXPECT_FALSE(lines.SetLineState(1, 1));
  EXPECT_EQ(lines.GetLineState(1), 5);
  desk.tick += 1;
  EXPECT_TRUE(lines.SetLineState(1, 1));

  // Refused, but each of these clicks restarts the debounce time.
  for (const uint8_t refused : Bytes{1, 0, 2, 3, 4, 6, 255}) {
    desk.tick += 500;
    EXPECT_FALSE(lines.SetLineState(1, refused)) << +refused;
    EXPECT_EQ(desk.state.lastLineClickTime, desk.tick);
  }
  desk.configuration.delayBtnEvent = -1;
  EXPECT_TRUE(lines.SetLineState(2, 5)) << "a negative time from the file is none";
}

TEST(CellItem, ClickTakesThatCellAndDisablesTheOthers) {
  CTelephoneDesk desk;
  desk.configuration.delayBtnEvent = 500;
  desk.SetStates(1, 1, 1);
  EXPECT_TRUE(desk.phone.Lines().Click(19));
  EXPECT_EQ(desk.state.cellDialLine, 19u);
  EXPECT_EQ(desk.Deeds(), (std::vector<std::string>{"only cell 2", "post 1 0", "post 0 1"}));

  EXPECT_FALSE(desk.phone.Lines().Click(19)) << "too soon";
  EXPECT_EQ(desk.state.cellDialLine, 19u);
  desk.tick += 500;
  EXPECT_TRUE(desk.phone.Lines().Click(19));
  EXPECT_EQ(desk.state.cellDialLine, 0u);
  EXPECT_EQ(desk.Deeds(), (std::vector<std::string>{"cell menu", "post 0 1"}));

  EXPECT_FALSE(desk.phone.Lines().Click(18)) << "too soon";
  EXPECT_EQ(desk.state.cellDialLine, 0u) << "a dropped click waits for no answer";
}

TEST(Requests, AnswerAndHangUpUseTheSlotsRecords) {
  CTelephoneDesk desk;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const uint8_t lineType = LineTypeFromSlot(slot);
    const auto index = static_cast<size_t>(slot);
    desk.records.dial[index] = {9, 3, "123"};
    desk.phone.Lines().AnswerUSB(slot);
    EXPECT_EQ(desk.records.dial[index].lineType, lineType);
    EXPECT_EQ(desk.records.dial[index].numberLength, 0);
    EXPECT_STREQ(desk.records.dial[index].number, "");
    EXPECT_EQ(desk.state.pendingClearLine, lineType);
    EXPECT_TRUE(desk.phone.Lines().DropUSB(lineType));
    EXPECT_EQ(desk.records.onHookLine[index], lineType);
    EXPECT_EQ(desk.Deeds(), (std::vector<std::string>{"post 11 " + std::to_string(lineType),
                                                      "post 12 " + std::to_string(lineType)}));
  }
  for (const uint32_t none : {0u, 3u, 16u, 21u, 0x101u})
    EXPECT_FALSE(desk.phone.Lines().DropUSB(none));
  desk.phone.Lines().AnswerUSB(-1);
  desk.phone.Lines().AnswerUSB(6);
  EXPECT_EQ(desk.Deeds(), std::vector<std::string>{});
}

TEST(Requests, FailedPostsAreLoggedAndNothingElse) {
  CTelephoneDesk desk;
  desk.postsFail = true;
  desk.phone.Lines().AnswerUSB(1);
  EXPECT_FALSE(desk.phone.Lines().DropUSB(1));
  desk.phone.Bar().PostSetBarState(true);
  desk.phone.Bar().PostClearDialNumber();
  EXPECT_EQ(desk.Journal(),
            (std::vector<std::string>{
                "log: CAddin::AnswerUSB", "post 11 2", "log: CAddin::AnswerUSB post failed",
                "log: CAddin::DropUSB", "post 12 1", "log: CAddin::DropUSB post failed",
                "log: CAddin::PostSetBarState", "post 0 1",
                "log: CAddin::PostSetBarState post failed", "log: CAddin::PostClearDialNumber",
                "post 1 0", "log: CAddin::PostClearDialNumber post failed"}));
}

}  // namespace
}  // namespace quor
