#ifndef QUOR_DEVICE_CONNECTION_EVENTS_H
#define QUOR_DEVICE_CONNECTION_EVENTS_H

#include "device/message_queue.h"
#include "module/diagnostic_log.h"

namespace quor {

// Announces that the base came, went, or was not there at start. Each raise logs a heading, sets
// the connected flag, posts, and logs the outcome; a post that fails leaves the flag changed all
// the same. True when the post succeeded.
class CConnectionEvents {
 public:
  CConnectionEvents(IMessageQueue& queue, CDiagnosticLog& log) noexcept
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
