#ifndef QUOR_TELEPHONE_LINE_STATES_H
#define QUOR_TELEPHONE_LINE_STATES_H

#include <array>
#include <cstdint>

#include "telephone/telephone_state.h"

namespace quor {

// How the record moves: with each report of the base, and when the add-in takes or releases a line.
// Nothing here logs, posts or draws.

// The five bytes of a status or per-line report.
struct LineReport {
  uint8_t line1;
  uint8_t line2;
  uint8_t dial;
  uint8_t cell;
  uint8_t cellSub;
};

// The three channels as the rules see them: where a channel's state stands in the record and in a
// report, and the caller-ID line type that makes its button an answer button.
struct Channel {
  uint8_t TelephoneRecord::*state;
  uint8_t LineReport::*reported;
  uint8_t answerLine;
};
inline constexpr std::array<Channel, 3> kChannels = {{
    {&TelephoneRecord::line1State, &LineReport::line1, kLine1},
    {&TelephoneRecord::line2State, &LineReport::line2, kLine2},
    {&TelephoneRecord::cellState, &LineReport::cell, kCell1},
}};

// The channel of a line type: 1 Line1, 2 Line2, any other code the cell side.
const Channel& ChannelOf(uint32_t lineType) noexcept;

// Whether the dial box is due to be emptied.
enum class DialBox : bool { Keep, Clear };

// A report while the add-in may hold a line: a held line outlives reports that call it idle.
DialBox StoreReport(TelephoneState& state, const LineReport& report) noexcept;

// A report where no line is ever held.
DialBox StoreReportV14(TelephoneState& state, const LineReport& report) noexcept;

// The add-in takes the line: the record is saved, only this line stays usable.
void TakeLine(TelephoneState& state, uint32_t lineType) noexcept;

// The add-in lets go: the saved record, kept current by StoreReport, comes back whole.
void ReleaseLine(TelephoneState& state) noexcept;

// A call rings that a line button can answer: every channel is busy and the call came in on Line1,
// Line2 or Cell1. Calls on Cell2 to Cell4 are not answered from a button.
bool IsAnswerable(const TelephoneState& state) noexcept;

bool IsRinging(const TelephoneRecord& record) noexcept;

}  // namespace quor

#endif
