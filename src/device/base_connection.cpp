#include "device/base_connection.h"

#include "device/line_type.h"

namespace quor {

bool CBaseConnection::RaiseConnect() noexcept {
  m_log.Write("< USB device connect >\n");
  m_connected = true;
  return Post(DeviceEvent::Connected, "USB device connect post complete.\n",
              "** USB device connect post failed.\n");
}

bool CBaseConnection::RaiseDisconnect() noexcept {
  m_log.Write("< USB device disconnect >\n");
  m_connected = false;
  return Post(DeviceEvent::Disconnected, "USB device disconnect post complete.\n",
              "** USB device disconnect post failed.\n");
}

bool CBaseConnection::RaiseErrorConnect() noexcept {
  m_log.Write("< USB device error connect >\n");
  m_connected = false;
  return Post(DeviceEvent::ErrorConnect, "USB device error connect post complete.\n",
              "** USB device error connect post failed.\n");
}

bool CBaseConnection::Post(DeviceEvent event, const char* successLine,
                           const char* failureLine) noexcept {
  const bool posted = m_queue.PostDeviceEvent(event, kNoLine);
  m_log.Write(posted ? successLine : failureLine);
  return posted;
}

}  // namespace quor
