#ifndef QUOR_DEVICE_INDICATION_DISPATCHER_H
#define QUOR_DEVICE_INDICATION_DISPATCHER_H

#include <cstdint>
#include <span>

#include "device/frame_format.h"
#include "device/message_queue.h"
#include "device/records.h"
#include "module/diagnostic_log.h"

namespace quor {

// Turns one indication into its record and its event, in that order: the handler of the event finds
// the record as it was when the event was raised.
//
// An indication for a line without a slot is dropped after its log lines: no record is written, no
// event raised, and the last reported status stays, so that noise cannot make the next, unchanged
// status report count as news.
class CIndicationDispatcher {
 public:
  CIndicationDispatcher(DeviceRecords& records, IMessageQueue& queue, CDiagnosticLog& log) noexcept
      : m_records(records), m_queue(queue), m_log(log) {}

  // A whole frame, header included, of the length its type asks for.
  void Dispatch(std::span<const uint8_t> frame) noexcept;

 private:
  void SetStatus(std::span<const uint8_t, kSetStatusSize> frame) noexcept;
  void ReceiveCall(std::span<const uint8_t, kReceiveCallSize> frame) noexcept;
  void CallerId(std::span<const uint8_t, kCallerIdSize> frame) noexcept;
  void ClosePopUp(std::span<const uint8_t, kClosePopUpSize> frame) noexcept;
  void CellRegistration(std::span<const uint8_t, kCellRegistrationSize> frame) noexcept;

  DeviceRecords& m_records;
  IMessageQueue& m_queue;
  CDiagnosticLog& m_log;
};

}  // namespace quor

#endif
