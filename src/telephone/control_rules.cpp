#include "telephone/control_rules.h"

#include <cstddef>

#include "resources/resource_ids.h"
#include "telephone/line_states.h"

namespace quor {

namespace {

// Rows in the order of kChannels and the line buttons, columns in the order of LineAction.
constexpr int kButtonTexts[][4] = {
    {IDS_CALL_FROM_LINE1, IDS_DISCONNECT_LINE1, IDS_CANCEL_LINE1, IDS_ANSWER_LINE1},
    {IDS_CALL_FROM_LINE2, IDS_DISCONNECT_LINE2, IDS_CANCEL_LINE2, IDS_ANSWER_LINE2},
    {IDS_CALL_FROM_CELL, IDS_DISCONNECT_CELL, IDS_CANCEL_CELL, IDS_ANSWER_CELL},
};

bool InCall(uint8_t state) noexcept {
  return state == kStateInCall || state == kStateOtherCall;
}

// A call was announced on this line and no other line is in a call.
bool MayAnswer(const TelephoneState& state, const Channel& own) noexcept {
  if (state.caller.cidLine != own.answerLine) return false;
  for (const Channel& other : kChannels) {
    if (other.state != own.state && InCall(state.record.*other.state)) return false;
  }
  return true;
}

bool IsLineButton(int lineIndex) noexcept {
  return lineIndex >= kLine1Button && lineIndex <= kCellButton;
}

bool IsLineEnabled(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept {
  const Channel& channel = kChannels[static_cast<size_t>(lineIndex)];
  switch (state.record.*channel.state) {
    case kStateIdle:
    case kStateInCall:
    case kStateTaken:
      return true;
    default:
      return withAnswer && MayAnswer(state, channel);
  }
}

}  // namespace

bool IsControlEnabled(const TelephoneState& state, int controlIndex, bool withAnswer) noexcept {
  switch (controlIndex) {
    case kDialBoxControl:
      return state.record.dialState == 1;
    case kLine1Control:
      return IsLineEnabled(state, kLine1Button, withAnswer);
    case kLine2Control:
      return IsLineEnabled(state, kLine2Button, withAnswer);
    case kCallerListControl:
      return state.record.dialState2 == 1;
    case kCallFromCellControl:
      return IsLineEnabled(state, kCellButton, withAnswer);
    case kSpeedDialControl:
      return state.record.lineAvailable == 1;
    case kOptionsControl:
      return true;
    default:
      return false;
  }
}

LineAction GetLineAction(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept {
  if (!IsLineButton(lineIndex)) return LineAction::Call;
  const Channel& channel = kChannels[static_cast<size_t>(lineIndex)];

  if (withAnswer && IsRinging(state.record) && state.caller.cidLine == channel.answerLine) {
    return LineAction::Answer;
  }
  switch (state.record.*channel.state) {
    case kStateNoBase:
    case kStateIdle:
    case kStateBusy:
      return LineAction::Call;
    case kStateTaken:
      return LineAction::Cancel;
    default:
      return LineAction::Disconnect;
  }
}

int GetLineCaption(const TelephoneState& state, int lineIndex, bool withAnswer) noexcept {
  if (!IsLineButton(lineIndex)) return IDS_NONE;
  const LineAction action = GetLineAction(state, lineIndex, withAnswer);
  return kButtonTexts[lineIndex][static_cast<size_t>(action)];
}

bool IsCellItemEnabled(const TelephoneState& state, int cell) noexcept {
  if (cell < 0 || cell >= kCellCount) return false;
  const int bit = 1 << cell;
  if ((state.cells.cellRegistered & bit) == 0) return false;
  return state.caller.popupLine == kCell1 + cell || (state.record.cellSub & bit) != 0;
}

}  // namespace quor
