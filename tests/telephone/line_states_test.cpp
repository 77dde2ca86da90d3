#include "telephone/line_states.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

// A record is dial state, line 1, line 2, cell, cells, available, dial state 2.
TEST(LineReports, ChangeTheRecordAndTheSavedOne) {
  constexpr uint8_t kCells = 0x0A;  // reported; 0x15 before
  const TelephoneRecord kept = {9, 11, 12, 13, 14, 15, 16};
  const struct {
    DialBox (*store)(TelephoneState&, const LineReport&) noexcept;
    uint8_t before[3];  // line 1, line 2, cell
    uint8_t line1, line2, dial, cell;
    TelephoneRecord record;
    TelephoneRecord saved;
  } rows[] = {
      {StoreReport, {1, 1, 1}, 2, 3, 2, 4, {2, 2, 3, 4, kCells, 0, 2}, kept},
      {StoreReport, {1, 1, 1}, 2, 1, 0, 2, {0, 2, 1, 2, kCells, 1, 0}, kept},
      // A line is held: other idle lines become busy, and the saved record gets the report.
      {StoreReport, {5, 1, 1}, 1, 1, 0, 2, {1, 5, 2, 2, 0x15, 1, 1}, {0, 11, 1, 2, 14, 1, 0}},
      {StoreReport, {2, 5, 2}, 3, 1, 1, 1, {1, 3, 5, 2, 0x15, 1, 1}, {1, 3, 12, 1, 14, 1, 1}},
      {StoreReport, {2, 2, 5}, 1, 2, 2, 1, {1, 2, 2, 5, 0x15, 1, 1}, {2, 1, 2, 13, 14, 1, 2}},
      {StoreReport, {5, 5, 1}, 1, 1, 0, 2, {1, 5, 2, 2, 0x15, 1, 1}, {0, 11, 1, 2, 14, 1, 0}},
      // A report that changes the held line ends the hold.
      {StoreReport, {5, 1, 1}, 3, 2, 0, 2, {0, 3, 2, 2, kCells, 0, 0}, kept},
      // The ribbon holds no line, and its dial box is enabled while any line is idle.
      {StoreReportV14, {5, 1, 1}, 1, 2, 0, 2, {1, 1, 2, 2, kCells, 1, 1}, kept},
      {StoreReportV14, {1, 1, 1}, 2, 2, 2, 2, {2, 2, 2, 2, kCells, 0, 2}, kept},
  };
  for (const auto& row : rows) {
    TelephoneState state;
    state.record = {0, row.before[0], row.before[1], row.before[2], 0x15, 0, 0};
    state.savedState = kept;
    row.store(state, {row.line1, row.line2, row.dial, row.cell, kCells});
    EXPECT_EQ(state.record, row.record) << "row " << &row - rows;
    EXPECT_EQ(state.savedState, row.saved) << "row " << &row - rows;
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
  for (const auto& row : rows) {
    for (const auto store : {StoreReport, StoreReportV14}) {
      TelephoneState state;
      state.pendingClearLine = row.pending;
      const DialBox box = store(state, {row.line1, row.line2, 0, row.cell, 0});
      EXPECT_EQ(box == DialBox::Clear, row.clears) << row.pending;
      EXPECT_EQ(state.pendingClearLine, row.clears ? 0 : row.pending);
    }
  }
  TelephoneState holding;
  holding.record.line1State = 5;
  holding.pendingClearLine = 1;
  EXPECT_EQ(StoreReport(holding, {1, 1, 0, 1, 0}), DialBox::Keep) << "not reported idle";
}

TEST(HeldLine, ComesBackWithTheLastReportsForTheOthers) {
  const struct {
    uint32_t lineType;
    TelephoneRecord start, taken, released;
  } rows[] = {
      {1, {0, 1, 1, 2, 6, 0, 0}, {1, 5, 2, 2, 6, 1, 1}, {0, 1, 1, 1, 6, 1, 0}},
      {2, {0, 3, 1, 1, 6, 0, 0}, {1, 3, 5, 2, 6, 1, 1}, {0, 1, 1, 1, 6, 1, 0}},
      {18, {0, 1, 4, 1, 6, 0, 0}, {1, 2, 4, 5, 6, 1, 1}, {0, 1, 1, 1, 6, 1, 0}},
  };
  for (const auto& row : rows) {
    TelephoneState state;
    state.record = row.start;
    TakeLine(state, row.lineType);
    EXPECT_EQ(state.record, row.taken);
    EXPECT_EQ(state.savedState, row.start);
    StoreReport(state, {1, 1, 0, 1, 9});
    ReleaseLine(state);
    EXPECT_EQ(state.record, row.released);
  }
}

}  // namespace
}  // namespace quor
