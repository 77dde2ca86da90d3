#include "telephone/line_states.h"

#include <algorithm>

// An outgoing call on Line1, the line taken first (states of Line1, Line2, cell side):
//
//   what happens                      record   Line1's button says
//   base connected                    1 1 1    Call from line1
//   click: the add-in takes the line  5 2 2    Cancel
//   report 1 1 1                      5 2 2    Cancel            held: the report calls it idle
//   number dialled, report 3 2 2      3 2 2    Disconnect line1
//   click: hang up, report 1 1 1      1 1 1    Call from line1   and the dial box is emptied
//
// An incoming call on Line2:
//
//   what happens                      record   Line2's button says
//   per-line report 2 2 2             2 2 2    Call from line2
//   caller ID for Line2               2 2 2    Answer to line2
//   click: answer, report 2 3 2       2 3 2    Disconnect line2
//   the caller hangs up, 1 1 1        1 1 1    Call from line2

namespace quor {

namespace {

uint8_t BusyIfIdle(uint8_t state) noexcept {
  return state == kStateIdle ? kStateBusy : state;
}

bool AnyIdle(const LineReport& report) noexcept {
  return std::ranges::any_of(kChannels, [&report](const Channel& channel) {
    return report.*channel.reported == kStateIdle;
  });
}

// Keeps the held channel. Other idle channels are shown as busy, because they cannot be used now.
// The reported states are saved for the release. CellSub and the pending clear wait for a report
// without a held line.
void KeepHeld(TelephoneState& state, const LineReport& report, const Channel& held) noexcept {
  TelephoneRecord& live = state.record;
  TelephoneRecord& saved = state.savedState;
  for (const Channel& other : kChannels) {
    if (other.state == held.state) continue;
    live.*other.state = BusyIfIdle(report.*other.reported);
    saved.*other.state = report.*other.reported;
  }
  saved.dialState = saved.dialState2 = report.dial;
  saved.lineAvailable = 1;
  live.dialState = live.dialState2 = live.lineAvailable = 1;
}

void StoreStates(TelephoneRecord& record, const LineReport& report) noexcept {
  for (const Channel& channel : kChannels)
    record.*channel.state = report.*channel.reported;
  record.cellSub = report.cellSub;
}

// Ends the pending clear when the line of the last request is idle again.
DialBox EndPendingClear(TelephoneState& state, const LineReport& report) noexcept {
  const uint32_t lineType = state.pendingClearLine;
  if (SlotFromLineType(lineType) == kNoSlot) return DialBox::Keep;
  if (report.*ChannelOf(lineType).reported != kStateIdle) return DialBox::Keep;
  state.pendingClearLine = kNoLine;
  return DialBox::Clear;
}

}  // namespace

const Channel& ChannelOf(uint32_t lineType) noexcept {
  switch (lineType) {
    case kLine1:
      return kChannels[0];
    case kLine2:
      return kChannels[1];
    default:
      return kChannels[2];
  }
}

DialBox StoreReport(TelephoneState& state, const LineReport& report) noexcept {
  for (const Channel& channel : kChannels) {
    if (state.record.*channel.state != kStateTaken) continue;
    if (report.*channel.reported != kStateIdle) continue;
    KeepHeld(state, report, channel);
    return DialBox::Keep;
  }
  StoreStates(state.record, report);
  state.record.dialState = state.record.dialState2 = report.dial;
  state.record.lineAvailable = AnyIdle(report) ? 1 : 0;
  return EndPendingClear(state, report);
}

DialBox StoreReportV14(TelephoneState& state, const LineReport& report) noexcept {
  const bool idle = AnyIdle(report);
  StoreStates(state.record, report);
  state.record.dialState = state.record.dialState2 = idle ? uint8_t{1} : report.dial;
  state.record.lineAvailable = idle ? 1 : 0;
  return EndPendingClear(state, report);
}

void TakeLine(TelephoneState& state, uint32_t lineType) noexcept {
  TelephoneRecord& live = state.record;
  state.savedState = live;
  for (const Channel& channel : kChannels)
    live.*channel.state = BusyIfIdle(live.*channel.state);
  live.*ChannelOf(lineType).state = kStateTaken;
  live.dialState = live.dialState2 = live.lineAvailable = 1;
}

void ReleaseLine(TelephoneState& state) noexcept {
  state.record = state.savedState;
}

bool IsRinging(const TelephoneRecord& record) noexcept {
  return std::ranges::all_of(
      kChannels, [&record](const Channel& channel) { return record.*channel.state == kStateBusy; });
}

bool IsAnswerable(const TelephoneState& state) noexcept {
  return IsRinging(state.record) &&
         std::ranges::any_of(kChannels, [&state](const Channel& channel) {
           return state.caller.cidLine == channel.answerLine;
         });
}

}  // namespace quor
