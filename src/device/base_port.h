#ifndef QUOR_DEVICE_BASE_PORT_H
#define QUOR_DEVICE_BASE_PORT_H

#include <cstdint>
#include <optional>
#include <span>

#include "device/base_connection.h"
#include "device/link_health.h"
#include "device/usbxpress.h"
#include "module/diagnostic_log.h"

namespace quor {

// The one handle to the telephone base and the serial line behind it. Logs library statuses and
// does not pass them on. To "lose" the device is to close it and raise the disconnect event; a
// later tick opens it again.
class CBasePort {
 public:
  CBasePort(IUsbXpress& usb, CBaseConnection& connection, LinkHealth& health,
            CDiagnosticLog& log) noexcept
      : m_usb(usb), m_connection(connection), m_health(health), m_log(log) {}
  CBasePort(const CBasePort&) = delete;
  CBasePort& operator=(const CBasePort&) = delete;

  bool IsOpen() const noexcept { return m_handle != nullptr; }

  // Finds the first bridge whose five product strings can be read, whatever their values. Gives up
  // after sixteen unreadable devices. Logs nothing when the library reports that no device is
  // connected.
  bool FindDevice(uint32_t& index) noexcept;

  // Opens the device and sets up the line: 19200 baud, 8N1, RTS active, 3 s timeouts. A refused
  // baud rate is logged and ignored; any other refusal loses the device.
  bool Open(uint32_t index) noexcept;

  // Always clears the handle; false when the library reports an error. A second Close calls the
  // library again, with a null handle.
  bool Close() noexcept;

  // Closes, then raises the disconnect event.
  void Lose() noexcept;

  // True when bytes wait to be read; `queued` is their count. Overruns and unknown statuses are
  // logged and purge nothing; a failing call loses the device.
  bool CheckReceiveQueue(uint32_t& queued) noexcept;

  // Returns the number of bytes read, possibly fewer than asked for. When the library fails, loses
  // the device and returns nothing.
  std::optional<uint32_t> Read(std::span<uint8_t> buffer) noexcept;

  // True when every byte was accepted. Does not close the device on failure; the caller decides.
  bool Write(std::span<const uint8_t> frame) noexcept;

  // Flushes both directions; a failure loses the device.
  bool Purge() noexcept;

 private:
  bool ReadProductStrings(uint32_t index) noexcept;
  // Loses the device and logs the line, in which %d is the status. Always returns false.
  bool LoseWith(const char* format, int status) noexcept;

  IUsbXpress& m_usb;
  CBaseConnection& m_connection;
  LinkHealth& m_health;
  CDiagnosticLog& m_log;
  UsbHandle m_handle = nullptr;
};

}  // namespace quor

#endif
