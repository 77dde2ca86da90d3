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

// Calls `body` with every combination of three states, 0 to 6: the named ones and an unknown one.
template <typename Body>
void EveryTriple(Body body) {
  for (uint8_t a = 0; a < 7; ++a) {
    for (uint8_t b = 0; b < 7; ++b) {
      for (uint8_t c = 0; c < 7; ++c)
        body(a, b, c);
    }
  }
}

// Whatever is reported for the other lines while a line is held, releasing it restores the saved
// record with the last reports for the others. A report that changes the held line ends the hold.
TEST(HeldLine, SurvivesIdleReportsOnlyAndComesBackWhole) {
  EveryTriple([&](uint8_t s1, uint8_t s2, uint8_t sc) {
    EveryTriple([&](uint8_t l1, uint8_t l2, uint8_t c) {
      for (const uint32_t lineType : {1u, 2u, 18u}) {
        const Channel& held = ChannelOf(lineType);
        const TelephoneRecord start = {0, s1, s2, sc, 6, 1, 0};
        if (start.*held.state != 1) continue;
        TelephoneState state;
        state.record = start;
        TakeLine(state, lineType);
        ASSERT_EQ(state.savedState, start);
        for (const Channel& any : kChannels)
          ASSERT_NE(state.record.*any.state, 1);
        // Skip a line that the base itself reports as taken: it is not held by the add-in.
        if (s1 == 5 || s2 == 5 || sc == 5) continue;

        const LineReport report = {l1, l2, 0, c, 9};
        StoreReport(state, report);
        const uint8_t reported = report.*held.reported;
        ASSERT_EQ(state.record.*held.state == 5, reported == 1 || reported == 5);
        if (reported != 1) continue;
        ReleaseLine(state);
        ASSERT_EQ(state.record, (TelephoneRecord{0, l1, l2, c, 6, 1, 0}));
      }
    });
  });
}

}  // namespace
}  // namespace quor
