#include "telephone/event_dispatcher.h"

#include <algorithm>
#include <string_view>

#include "resources/resource_ids.h"

namespace quor {

namespace {

// CellSub after a connect, until the first status report. Bit 4 (value 16) belongs to no cell and
// has no effect.
constexpr uint8_t kCellSubOnConnect = 21;

constexpr uint8_t kBusyReply = 1;

// Copies a text, which may fill its field without a terminator, into a field with room for a NUL.
template <size_t kTo, size_t kFrom>
uint8_t CopyText(char (&to)[kTo], const char (&from)[kFrom]) noexcept {
  const std::string_view field(from, kFrom);
  const size_t length = field.copy(to, std::min(field.find('\0'), kTo - 1));
  to[length] = '\0';
  return static_cast<uint8_t>(length);
}

}  // namespace

int CEventDispatcher::OnEventGet(uint32_t event, uint32_t lineType) {
  m_collaborators.log.Write("CAddin::OnEventGet\n");
  switch (static_cast<DeviceEvent>(event)) {
    case DeviceEvent::Connected:
      OnConnected();
      break;
    case DeviceEvent::Disconnected:
      OnDisconnected();
      break;
    case DeviceEvent::ErrorConnect:
      m_collaborators.messages.ShowMessage(IDS_DEVICE_NOT_CONNECTED);
      break;
    case DeviceEvent::Status:
      OnStatus();
      break;
    case DeviceEvent::ReceiveCall:
      OnReceiveCall(lineType);
      break;
    case DeviceEvent::CallerId:
      OnCallerId(lineType);
      break;
    case DeviceEvent::ClosePopup:
      OnClosePopupEvent(lineType);
      break;
    case DeviceEvent::CellRegistration:
      OnCellRegistration();
      break;
  }
  return 0;
}

void CEventDispatcher::OnConnected() {
  m_collaborators.log.Write("OnEventGet::classUsbConnected\n");
  m_lines.SetUSBState(kStateIdle, kStateIdle, 0, kStateIdle, kCellSubOnConnect);
  m_refresh.SetBarState(1);
}

void CEventDispatcher::OnDisconnected() {
  m_collaborators.log.Write("OnEventGet::classUsbDisconnected\n");
  // Without a base there is no call to answer.
  m_state.caller.popupLine = m_state.caller.cidLine = kNoLine;
  m_lines.SetUSBState(kStateNoBase, kStateNoBase, 0, kStateNoBase, 0);
  m_collaborators.calls.EndAll();
  m_collaborators.callerWindow.Hide();
  m_refresh.SetBarState(0);
}

// Updates the lines, the call and its window before redrawing: a redraw may pump messages and
// handle the next event, which this report must not undo.
void CEventDispatcher::OnStatus() {
  m_collaborators.log.Write("OnEventGet::classSetStatusIndication\n");
  if (m_collaborators.records.status.result == kBusyReply) ShowBusyReply();

  const StatusRecord report = m_collaborators.records.status;
  m_collaborators.calls.OnStates(report.line1, report.line2, report.cell);
  m_lines.SetUSBState(report.line1, report.line2, report.log, report.cell, report.cellSub);
  FollowCall(report);

  m_refresh.SetBarState(1);
  m_collaborators.controls.PutCallFromCellButton();
  m_collaborators.controls.PutSpeedDialButton();
}

void CEventDispatcher::FollowCall(const StatusRecord& report) {
  const bool cellIdle = report.cell == kStateIdle;
  const bool callOver = cellIdle && report.line1 == kStateIdle && report.line2 == kStateIdle;
  if (callOver) m_state.caller.cidLine = kNoLine;
  if (cellIdle) m_state.caller.popupLine = kNoLine;
  if (cellIdle) m_state.cellDialLine = kNoLine;

  m_collaborators.callerWindow.Follow(report.line1, report.line2, report.cell);
  if (callOver) m_collaborators.callerWindow.Hide();
}

void CEventDispatcher::ShowBusyReply() {
  m_collaborators.calls.OnDialRefused();
  const bool cell = m_state.cellDialLine != kNoLine;
  m_state.cellDialLine = kNoLine;
  m_collaborators.messages.ShowMessage(cell ? IDS_CELL_BUSY : IDS_LINE_BUSY);
}

void CEventDispatcher::OnReceiveCall(uint32_t lineType) {
  m_collaborators.log.Write("OnEventGet::classReceiveCallIndication\n");
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return;
  const IncomingCallRecord report = m_collaborators.records.incomingCall[static_cast<size_t>(slot)];
  m_collaborators.calls.OnStates(report.line1, report.line2, report.cell);
  m_collaborators.calls.OnRing(slot);
  m_lines.SetUSBState(report.line1, report.line2, report.log, report.cell, report.cellSub);
  m_refresh.SetBarState(1);
}

void CEventDispatcher::OnCallerId(uint32_t lineType) {
  m_collaborators.log.Write("OnEventGet::classReceiveCIDIndication\n");
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return;
  const CallerIdRecord& record = m_collaborators.records.callerId[static_cast<size_t>(slot)];
  const bool longDistance = record.longDistance != 0;
  SetUSBRecvCIDInfo(record);
  m_incomingCalls.OnCallerId(longDistance);
}

void CEventDispatcher::OnClosePopupEvent(uint32_t lineType) {
  m_collaborators.log.Write("OnEventGet::classClosePopUpIndication\n");
  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return;
  SetUSBRecvCPOPUPInfo(m_collaborators.records.lastCaller[static_cast<size_t>(slot)]);
  m_incomingCalls.OnPopup();
}

void CEventDispatcher::OnCellRegistration() {
  SetUSBRecvCellRegistInfo(m_collaborators.records.cells);
  m_collaborators.controls.PutCallFromCellButton();
}

void CEventDispatcher::SetUSBRecvCIDInfo(const CallerIdRecord& record) noexcept {
  m_collaborators.log.Write("CAddin::SetUSBRecvCIDInfo\n");
  CallerInformation& caller = m_state.caller;
  caller = {};
  caller.infoKind = kInfoCallerId;
  caller.noNum = record.noNum;
  caller.noName = record.noName;
  CopyText(caller.name, record.name);
  caller.numberLength = CopyText(caller.number, record.number);
  caller.cidLine = record.lineType;
  caller.lineUnitNo = record.lineUnitNo;
}

void CEventDispatcher::SetUSBRecvCPOPUPInfo(const LastCallerRecord& record) noexcept {
  m_collaborators.log.Write("CAddin::SetUSBRecvCPOPUPInfo\n");
  CallerInformation& caller = m_state.caller;
  caller = {};
  caller.infoKind = kInfoPopup;
  caller.popupLine = record.lineType;
  caller.numberLength = CopyText(caller.number, record.number);
}

// A mobile that registers while a call rings does not end the call, so only the kind of the caller
// information changes.
void CEventDispatcher::SetUSBRecvCellRegistInfo(const CellRegistrationRecord& record) noexcept {
  m_collaborators.log.Write("CAddin::SetUSBRecvCellRegistInfo\n");
  m_state.caller.infoKind = kInfoCellRegistration;
  m_state.cells = {};
  m_state.cells.cellRegistered = record.regInfo;
  for (size_t cell = 0; cell < kCellCount; ++cell) {
    CopyText(m_state.cells.names[cell], record.names[cell]);
  }
}

}  // namespace quor
