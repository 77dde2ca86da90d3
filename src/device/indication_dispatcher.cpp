#include "device/indication_dispatcher.h"

#include <algorithm>
#include <iterator>

#include "device/frame_decoder.h"
#include "device/line_type.h"

namespace quor {

void CIndicationDispatcher::Dispatch(std::span<const uint8_t> frame) noexcept {
  switch (static_cast<Indication>(frame[1])) {
    case Indication::SetStatus:
      return SetStatus(frame.first<kSetStatusSize>());
    case Indication::ReceiveCall:
      return ReceiveCall(frame.first<kReceiveCallSize>());
    case Indication::CallerId:
      return CallerId(frame.first<kCallerIdSize>());
    case Indication::ClosePopUp:
      return ClosePopUp(frame.first<kClosePopUpSize>());
    case Indication::CellRegistration:
      return CellRegistration(frame.first<kCellRegistrationSize>());
  }
  m_log.Write("< Message Type Errror >\n");
  m_records.lastStatus = kNothingReported;
}

void CIndicationDispatcher::SetStatus(std::span<const uint8_t, kSetStatusSize> frame) noexcept {
  const StatusRecord status = DecodeStatus(frame);
  m_log.Write("< Inform set status >\n");
  m_log.Print(
      "Result: 0x%02X, L1: 0x%02X, L2: 0x%02X, CELL: 0x%02X, LOG: 0x%02X, CELLSUB: 0x%02X\n",
      status.result, status.line1, status.line2, status.cell, status.log, status.cellSub);

  m_records.status = status;
  if (status == m_records.lastStatus) {
    m_log.Write("** SET_STATUS_INDICATION does not include a change.\n");
    return;
  }
  m_records.lastStatus = status;
  if (!m_queue.PostDeviceEvent(DeviceEvent::Status, kNoLine)) {
    m_log.Write("** SET_STATUS_INDICATION post failed.\n");
  }
}

void CIndicationDispatcher::ReceiveCall(std::span<const uint8_t, kReceiveCallSize> frame) noexcept {
  const IncomingCallRecord call = DecodeReceiveCall(frame);
  m_log.Write("< Inform receive call >\n");
  m_log.Print(
      "LineType: 0x%02X, L1: 0x%02X, L2: 0x%02X, CELL: 0x%02X, LOG: 0x%02X, CELLSUB: 0x%02X\n",
      call.lineType, call.line1, call.line2, call.cell, call.log, call.cellSub);

  const int slot = SlotFromLineType(call.lineType);
  if (slot == kNoSlot) return;
  m_records.incomingCall[static_cast<size_t>(slot)] = call;
  if (!m_queue.PostDeviceEvent(DeviceEvent::ReceiveCall, call.lineType)) {
    m_log.Write("** RECEIVE_CALL_INDICATION post failed.\n");
  }
  m_records.lastStatus = kNothingReported;
}

void CIndicationDispatcher::CallerId(std::span<const uint8_t, kCallerIdSize> frame) noexcept {
  const CallerIdRecord caller = DecodeCallerId(frame);
  const int numberLength = frame[kCidNumberLengthOffset];
  m_log.Write("< Inform CID >\n");
  if (!HasValidNumberLength(frame))
    m_log.Print("** Error : Dial number error.(%d)\n", numberLength);
  m_log.Print(
      "NoNum: 0x%02X, NoName: 0x%02X, LongDistance: 0x%02X, Name[0]: 0x%02X, "
      "NumberLength: 0x%02X, Number: %s, LineTtype: 0x%02X, LineUnitNo: 0x%02X\n",
      caller.noNum, caller.noName, caller.longDistance, static_cast<uint8_t>(caller.name[0]),
      numberLength, caller.number, caller.lineType, caller.lineUnitNo);

  const int slot = SlotFromLineType(caller.lineType);
  if (slot == kNoSlot) return;
  m_records.callerId[static_cast<size_t>(slot)] = caller;
  std::copy(std::begin(caller.number), std::end(caller.number),
            m_records.lastCaller[static_cast<size_t>(slot)].number);
  if (!m_queue.PostDeviceEvent(DeviceEvent::CallerId, caller.lineType)) {
    m_log.Write("** RECEIVE_CID_INDICATION post failed.\n");
  }
  m_records.lastStatus = kNothingReported;
}

// Raises no event: the next status report closes the pop-up.
void CIndicationDispatcher::ClosePopUp(std::span<const uint8_t, kClosePopUpSize> frame) noexcept {
  const uint8_t lineType = frame[kClosePopUpLineTypeOffset];
  m_log.Write("< Inform pop-up close >\n");
  m_log.Print("LineType: 0x%02X\n", lineType);

  const int slot = SlotFromLineType(lineType);
  if (slot == kNoSlot) return;
  m_records.callerId[static_cast<size_t>(slot)].lineType = kNoLine;
  m_records.lastCaller[static_cast<size_t>(slot)].lineType = lineType;
  m_log.Write("** CLOSE_POP_UP_INDICATION ignored.\n");
  m_records.lastStatus = kNothingReported;
}

void CIndicationDispatcher::CellRegistration(
    std::span<const uint8_t, kCellRegistrationSize> frame) noexcept {
  const CellRegistrationRecord cells = DecodeCellRegistration(frame);
  m_log.Write("< Inform Cell Regist Information >\n");
  // The names have no terminator when they fill their fields.
  m_log.Print(
      "RegInfo: 0x%02X, Cell1Name: %.14s, Cell2Name: %.14s, Cell3Name: %.14s, Cell4Name: %.14s\n",
      cells.regInfo, cells.names[0], cells.names[1], cells.names[2], cells.names[3]);

  m_records.cells = cells;
  if (!m_queue.PostDeviceEvent(DeviceEvent::CellRegistration, kNoLine)) {
    m_log.Write("** CELL_REGIST_INFO_INDICATION post failed.\n");
  }
}

}  // namespace quor
