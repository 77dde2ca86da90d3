#include "telephone/line_control.h"

#include <algorithm>
#include <utility>

namespace quor {

namespace {

bool IsCell(uint32_t lineType) noexcept {
  return lineType >= kCell1 && lineType <= kCell4;
}

bool IsCellSide(uint32_t lineType) noexcept {
  return &ChannelOf(lineType) == &kChannels.back();
}

}  // namespace

bool CLineControl::SetUSBState(uint8_t line1, uint8_t line2, uint8_t dial, uint8_t cell,
                               uint8_t cellSub) {
  m_collaborators.log.Write("CAddin::SetUSBState\n");
  if (m_state.HasRibbon()) return SetUSBStateV14(line1, line2, dial, cell, cellSub);
  if (StoreReport(m_state, {line1, line2, dial, cell, cellSub}) == DialBox::Clear) {
    m_dialler.PostClearDialNumber();
  }
  return true;
}

bool CLineControl::SetUSBStateV14(uint8_t line1, uint8_t line2, uint8_t dial, uint8_t cell,
                                  uint8_t cellSub) {
  m_collaborators.log.Write("CAddin::SetUSBStateV14\n");
  if (StoreReportV14(m_state, {line1, line2, dial, cell, cellSub}) == DialBox::Clear) {
    m_dialler.PostClearDialNumber();
  }
  return true;
}

uint8_t CLineControl::GetLineState(uint32_t lineType) const noexcept {
  return m_state.record.*ChannelOf(lineType).state;
}

bool CLineControl::SetLineState(uint32_t lineType, uint8_t newState) {
  m_collaborators.log.Write("CAddin::SetLineState\n");
  const uint32_t now = m_collaborators.clock.TickMilliseconds();
  const auto delay =
      static_cast<uint32_t>(std::max(0, m_collaborators.configuration.delayBtnEvent));
  if (now - m_state.lastLineClickTime < delay) return false;
  m_state.lastLineClickTime = now;

  if (GetLineState(lineType) == newState) return false;
  switch (newState) {
    case kStateIdle:
      return Release(lineType);
    case kStateTaken:
      return Take(lineType);
    default:
      return false;
  }
}

bool CLineControl::Release(uint32_t lineType) {
  ReleaseLine(m_state);
  if (IsCellSide(lineType)) m_collaborators.controls.PutCallFromCellButton();
  return true;
}

bool CLineControl::Take(uint32_t lineType) {
  TakeLine(m_state, lineType);
  if (IsCellSide(lineType)) DisableOtherCells();
  m_dialler.PostClearDialNumber();
  return true;
}

void CLineControl::DisableOtherCells() {
  const uint32_t held = m_state.cellDialLine;
  if (IsCell(held)) m_collaborators.controls.DisableOtherCellItems(static_cast<int>(held - kCell1));
}

bool CLineControl::Click(uint32_t lineType) {
  return m_state.HasRibbon() ? ClickLineButtonV14(lineType) : ClickLineButton(lineType);
}

bool CLineControl::AnswerRinging(uint32_t lineType) noexcept {
  if (!IsAnswerable(m_state)) return false;
  AnswerUSB(SlotFromLineType(lineType));
  return true;
}

bool CLineControl::ClickLineButton(uint32_t lineType) {
  m_collaborators.log.Write("CAddin::ClickLineButton\n");
  if (AnswerRinging(lineType)) return true;

  switch (GetLineState(lineType)) {
    case kStateInCall:
      return DropUSB(lineType);
    case kStateIdle:
      return TakeOrRelease(lineType, kStateTaken,
                           IsCell(lineType) ? lineType : m_state.cellDialLine);
    case kStateTaken:
      return TakeOrRelease(lineType, kStateIdle, kNoLine);
    default:
      return false;
  }
}

// SetLineState redraws the cell menu and needs the new cell, so set it first. A dropped click must
// change nothing, so restore it.
bool CLineControl::TakeOrRelease(uint32_t lineType, uint8_t newState, uint32_t cellDialLine) {
  const uint32_t previousCell = std::exchange(m_state.cellDialLine, cellDialLine);
  if (!SetLineState(lineType, newState)) {
    m_state.cellDialLine = previousCell;
    return false;
  }
  m_refresh.PostSetBarState(true);
  return true;
}

bool CLineControl::ClickLineButtonV14(uint32_t lineType) {
  m_collaborators.log.Write("CAddin::ClickLineButtonV14\n");
  if (AnswerRinging(lineType)) return true;

  bool done = false;
  switch (GetLineState(lineType)) {
    case kStateInCall:
      done = DropUSB(lineType);
      break;
    case kStateIdle:
      ChooseLine(lineType);
      done = m_dialler.DialStoredText();
      break;
    default:
      return false;
  }
  if (!done) m_state.cellDialLine = kNoLine;
  return done;
}

void CLineControl::ChooseLine(uint32_t lineType) noexcept {
  m_state.pendingClearLine = lineType;
  if (IsCell(lineType)) m_state.cellDialLine = lineType;
}

bool CLineControl::DialsAtOnce(uint32_t lineType) const noexcept {
  return m_state.HasRibbon() && GetLineState(lineType) == kStateIdle;
}

bool CLineControl::DialOnLine(uint32_t lineType, std::wstring_view number) {
  m_collaborators.log.Write("CAddin::ClickLineButtonV14\n");
  if (!DialsAtOnce(lineType)) return false;
  const uint32_t clearedBefore = m_state.pendingClearLine;
  ChooseLine(lineType);
  if (m_dialler.DialCall(0, number)) return true;
  m_state.cellDialLine = kNoLine;
  m_state.pendingClearLine = clearedBefore;
  return false;
}

void CLineControl::AnswerUSB(int slot) noexcept {
  m_collaborators.log.Write("CAddin::AnswerUSB\n");
  const uint8_t lineType = LineTypeFromSlot(slot);
  if (lineType == kNoLine) return;
  DialRecord& request = m_collaborators.records.dial[static_cast<size_t>(slot)];
  request = {};  // no number: answer
  request.lineType = lineType;
  m_state.pendingClearLine = lineType;
  if (!m_collaborators.queue.PostRequest(WindowRequest::CallRequest, lineType)) {
    m_collaborators.log.Write("CAddin::AnswerUSB post failed\n");
  }
}

bool CLineControl::DropUSB(uint32_t lineType) noexcept {
  m_collaborators.log.Write("CAddin::DropUSB\n");
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return false;
  m_collaborators.records.onHookLine[static_cast<size_t>(slot)] = static_cast<uint8_t>(lineType);
  if (m_collaborators.queue.PostRequest(WindowRequest::OnHookRequest, lineType)) return true;
  m_collaborators.log.Write("CAddin::DropUSB post failed\n");
  return false;
}

}  // namespace quor
