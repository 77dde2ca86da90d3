#ifndef QUOR_DEVICE_INDICATION_DISPATCHER_H
#define QUOR_DEVICE_INDICATION_DISPATCHER_H

#include <cstdint>
#include <span>

#include "device/frame_format.h"
#include "device/message_queue.h"
#include "device/records.h"
#include "module/diagnostic_log.h"

namespace quor {

// Stores each indication's record and then posts its event, so the event's handler finds the record
// complete.
//
// An indication for an unknown line is logged and dropped: no record is written and no event
// posted. The last reported status stays too, so that an unchanged report after such noise is not
// treated as a change.
class CIndicationDispatcher {
 public:
  CIndicationDispatcher(DeviceRecords& records, IMessageQueue& queue, CDiagnosticLog& log) noexcept
      : m_records(records), m_queue(queue), m_log(log) {}

  // Takes a whole frame with its header, of the length that its type requires.
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
