#ifndef QUOR_DEVICE_FRAME_READER_H
#define QUOR_DEVICE_FRAME_READER_H

#include <array>
#include <cstdint>
#include <span>

#include "device/base_port.h"
#include "device/indication_dispatcher.h"
#include "device/link_health.h"
#include "module/diagnostic_log.h"

namespace quor {

// Reads one indication from the port and dispatches it. Recovers from any bytes: a wrong start byte
// or an unknown type purges both directions, a short read is dropped, and each call expects the
// start of a frame. Does not allocate while the log is off.
class CFrameReader {
 public:
  CFrameReader(CBasePort& port, CIndicationDispatcher& dispatcher, LinkHealth& health,
               CDiagnosticLog& log) noexcept
      : m_port(port), m_dispatcher(dispatcher), m_health(health), m_log(log) {}

  // Call when bytes are queued. True when a frame was read and dispatched.
  bool ReadFrame() noexcept;

 private:
  static constexpr size_t kBufferSize = 1024;
  using Buffer = std::array<uint8_t, kBufferSize>;

  bool ReadExactly(std::span<uint8_t> target) noexcept;
  void Resynchronise(Buffer& buffer) noexcept;
  void CheckDelimiters(std::span<const uint8_t> frame) noexcept;

  CBasePort& m_port;
  CIndicationDispatcher& m_dispatcher;
  LinkHealth& m_health;
  CDiagnosticLog& m_log;
};

}  // namespace quor

#endif
