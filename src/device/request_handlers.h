#ifndef QUOR_DEVICE_REQUEST_HANDLERS_H
#define QUOR_DEVICE_REQUEST_HANDLERS_H

#include <cstdint>

#include "device/device_link.h"
#include "device/records.h"
#include "module/diagnostic_log.h"

namespace quor {

// Shows that an on-hook request was sent.
class ICallFromCellDisplay {
 public:
  virtual void PutCallFromCellButton() = 0;

 protected:
  ~ICallFromCellDisplay() = default;
};

// Handle the requests posted to the hidden window. Line types come from window messages, so any
// value may arrive; a request for an unknown line is refused.
class CRequestHandlers {
 public:
  CRequestHandlers(CDeviceLink& link, DeviceRecords& records, ICallFromCellDisplay& display,
                   CDiagnosticLog& log) noexcept
      : m_link(link), m_records(records), m_display(display), m_log(log) {}

  void OnStartupRequest();
  // Sends the slot's dial record; an empty number answers a ringing line.
  void OnCallRequest(uint32_t lineType);
  // Ends the call of the slot's on-hook line and clears the slot's pop-up.
  void OnOnHookRequest(uint32_t lineType);

 private:
  bool SendCall(uint32_t lineType);
  bool SendOnHook(uint32_t lineType);

  CDeviceLink& m_link;
  DeviceRecords& m_records;
  ICallFromCellDisplay& m_display;
  CDiagnosticLog& m_log;
};

}  // namespace quor

#endif
