#ifndef QUOR_TELEPHONE_LINE_STATES_H
#define QUOR_TELEPHONE_LINE_STATES_H

#include <array>
#include <cstdint>

#include "telephone/telephone_state.h"

namespace quor {

// How the telephone record changes: with each report of the base, and when the add-in takes or
// releases a line. These functions do not log, post or draw.

// The five bytes of a status or per-line report.
struct LineReport {
  uint8_t line1;
  uint8_t line2;
  uint8_t dial;
  uint8_t cell;
  uint8_t cellSub;
};

// A channel: where its state is in the record and in a report, and the caller-ID line type that
// turns its button into an answer button.
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

// The channel of a line type: 1 is Line1, 2 is Line2, any other code the cell side.
const Channel& ChannelOf(uint32_t lineType) noexcept;

// Whether the caller must clear the dial box.
enum class DialBox : bool { Keep, Clear };

// Stores a report; the add-in may hold a line. A held line stays held even when the report calls it
// idle.
DialBox StoreReport(TelephoneState& state, const LineReport& report) noexcept;

// Stores a report; no line is held, as always with a ribbon.
DialBox StoreReportV14(TelephoneState& state, const LineReport& report) noexcept;

// The add-in takes the line: saves the record and leaves only this line usable.
void TakeLine(TelephoneState& state, uint32_t lineType) noexcept;

// The add-in releases the line: restores the saved record, which StoreReport has kept up to date.
void ReleaseLine(TelephoneState& state) noexcept;

// Whether a line button can answer the ringing call: every channel is busy and the call arrived on
// Line1, Line2 or Cell1. No button answers calls on Cell2 to Cell4.
bool IsAnswerable(const TelephoneState& state) noexcept;

bool IsRinging(const TelephoneRecord& record) noexcept;

}  // namespace quor

#endif
