#ifndef QUOR_DEVICE_BASE_CONNECTION_H
#define QUOR_DEVICE_BASE_CONNECTION_H

#include "device/message_queue.h"
#include "module/diagnostic_log.h"

namespace quor {

// Whether the base is connected; posts each change, and that the base was missing at start-up. Each
// raise logs a heading, sets the connected flag, posts the event and logs the outcome. The flag
// changes even if the post fails. True when the post succeeds.
class CBaseConnection {
 public:
  CBaseConnection(IMessageQueue& queue, CDiagnosticLog& log) noexcept
      : m_queue(queue), m_log(log) {}

  bool RaiseConnect() noexcept;
  bool RaiseDisconnect() noexcept;
  bool RaiseErrorConnect() noexcept;

  bool IsConnected() const noexcept { return m_connected; }

 private:
  bool Post(DeviceEvent event, const char* successLine, const char* failureLine) noexcept;

  IMessageQueue& m_queue;
  CDiagnosticLog& m_log;
  bool m_connected = false;
};

}  // namespace quor

#endif
