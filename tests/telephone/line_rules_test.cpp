#include <gtest/gtest.h>

#include "telephone_desk.h"

namespace quor {
namespace {

constexpr uint8_t kStates = 7;  // 0 to 6: the named states and an unknown one

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

// A record is dial state, line 1, line 2, cell, cells, available, dial state 2.
TEST(LineReports, ChangeTheRecordAndTheSavedOne) {
  constexpr uint8_t kCells = 0x0A;  // reported; 0x15 before
  const TelephoneRecord kept = {9, 11, 12, 13, 14, 15, 16};
  const struct {
    int version;
    uint8_t before[3];  // line 1, line 2, cell
    uint8_t line1, line2, dial, cell;
    TelephoneRecord record;
    TelephoneRecord saved;
  } rows[] = {
      {kToolbarVersion, {1, 1, 1}, 2, 3, 2, 4, {2, 2, 3, 4, kCells, 0, 2}, kept},
      {kToolbarVersion, {1, 1, 1}, 2, 1, 0, 2, {0, 2, 1, 2, kCells, 1, 0}, kept},
      // A line is held: other idle lines become busy, and the saved record gets the report.
      {kToolbarVersion, {5, 1, 1}, 1, 1, 0, 2, {1, 5, 2, 2, 0x15, 1, 1}, {0, 11, 1, 2, 14, 1, 0}},
      {kToolbarVersion, {2, 5, 2}, 3, 1, 1, 1, {1, 3, 5, 2, 0x15, 1, 1}, {1, 3, 12, 1, 14, 1, 1}},
      {kToolbarVersion, {2, 2, 5}, 1, 2, 2, 1, {1, 2, 2, 5, 0x15, 1, 1}, {2, 1, 2, 13, 14, 1, 2}},
      {kToolbarVersion, {5, 5, 1}, 1, 1, 0, 2, {1, 5, 2, 2, 0x15, 1, 1}, {0, 11, 1, 2, 14, 1, 0}},
      // A report that changes the held line ends the hold.
      {kToolbarVersion, {5, 1, 1}, 3, 2, 0, 2, {0, 3, 2, 2, kCells, 0, 0}, kept},
      // The ribbon holds no line, and its dial box is enabled while any line is idle.
      {kRibbonVersion, {5, 1, 1}, 1, 2, 0, 2, {1, 1, 2, 2, kCells, 1, 1}, kept},
      {kRibbonVersion, {1, 1, 1}, 2, 2, 2, 2, {2, 2, 2, 2, kCells, 0, 2}, kept},
  };
  for (const auto& row : rows) {
    CTelephoneDesk desk(row.version);
    desk.state.record = {0, row.before[0], row.before[1], row.before[2], 0x15, 0, 0};
    desk.state.savedState = kept;
    desk.phone.Lines().SetUSBState(row.line1, row.line2, row.dial, row.cell, kCells);
    EXPECT_EQ(desk.state.record, row.record) << "row " << &row - rows;
    EXPECT_EQ(desk.state.savedState, row.saved) << "row " << &row - rows;
  }
}

TEST(LineReports, AnIdleReportForTheDialledLineClearsTheBoxOnce) {
  const struct {
    uint32_t pending;
    uint8_t line1, line2, cell;
    bool clears;
  } rows[] = {{0, 1, 1, 1, false}, {1, 1, 2, 2, true},  {1, 2, 1, 1, false}, {2, 2, 1, 2, true},
              {2, 1, 2, 1, false}, {17, 2, 2, 1, true}, {20, 2, 2, 1, true}, {20, 1, 1, 2, false},
              {3, 1, 1, 1, false}, {21, 1, 1, 1, false}};
  for (const int version : {kToolbarVersion, kRibbonVersion}) {
    for (const auto& row : rows) {
      CTelephoneDesk desk(version);
      desk.state.pendingClearLine = row.pending;
      desk.phone.Lines().SetUSBState(row.line1, row.line2, 0, row.cell, 0);
      EXPECT_EQ(desk.state.pendingClearLine, row.clears ? 0 : row.pending) << row.pending;
      EXPECT_EQ(desk.posts, row.clears ? 1 : 0) << row.pending;
    }
  }
  CTelephoneDesk holding;
  holding.SetStates(5, 1, 1);
  holding.state.pendingClearLine = 1;
  holding.phone.Lines().SetUSBState(1, 1, 0, 1, 0);
  EXPECT_EQ(holding.state.pendingClearLine, 1u) << "a held line is not reported idle";
}

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

}  // namespace
}  // namespace quor
