#ifndef QUOR_DEVICE_BASE_PORT_H
#define QUOR_DEVICE_BASE_PORT_H

#include <cstdint>
#include <optional>
#include <span>

#include "device/connection_events.h"
#include "device/link_health.h"
#include "device/usbxpress.h"
#include "module/diagnostic_log.h"

namespace quor {

// The one handle to the telephone base and the serial line behind it. Library statuses are logged
// here and stop here. "Lost" below means: the device is closed and the disconnect event raised, so
// that a later tick opens it again.
class CBasePort {
 public:
  CBasePort(IUsbXpress& usb, CConnectionEvents& events, LinkHealth& health,
            CDiagnosticLog& log) noexcept
      : m_usb(usb), m_events(events), m_health(health), m_log(log) {}
  CBasePort(const CBasePort&) = delete;
  CBasePort& operator=(const CBasePort&) = delete;

  bool IsOpen() const noexcept { return m_handle != nullptr; }

  // The first bridge whose five product strings can all be read, whatever they say; the search ends
  // after sixteen that cannot. No bridge at all is nothing to report; the library names that case
  // with a status of its own.
  bool FindDevice(uint32_t& index) noexcept;

  // Opens the device and sets the line up: 19200 baud, 8N1, RTS held, 3 s timeouts. A bridge that
  // refuses the baud rate is used as it is; any other refusal loses the device.
  bool Open(uint32_t index) noexcept;

  // The handle is given up whatever the library answers; false when it reported an error. Closing
  // twice asks the library twice.
  bool Close() noexcept;

  // Close, then the disconnect event.
  void Lose() noexcept;

  // True when bytes wait to be read, with their count. Overrun and unknown statuses are logged and
  // purge nothing; a failing call loses the device.
  bool CheckReceiveQueue(uint32_t& queued) noexcept;

  // The count read, possibly short. Nothing when the library failed, which loses the device.
  std::optional<uint32_t> Read(std::span<uint8_t> buffer) noexcept;

  // True when every byte was accepted. The device stays as it is on failure: what follows is the
  // request's business.
  bool Write(std::span<const uint8_t> frame) noexcept;

  // Flushes both directions; a failure loses the device.
  bool Purge() noexcept;

 private:
  bool ReadProductStrings(uint32_t index) noexcept;
  // Loses the device and logs the line, whose one %d is the status; always false.
  bool LoseWith(const char* format, int status) noexcept;

  IUsbXpress& m_usb;
  CConnectionEvents& m_events;
  LinkHealth& m_health;
  CDiagnosticLog& m_log;
  UsbHandle m_handle = nullptr;
};

}  // namespace quor

#endif
