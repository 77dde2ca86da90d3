#include "device/frame_reader.h"

#include <algorithm>
#include <optional>

#include "device/frame_dump.h"
#include "device/frame_format.h"

namespace quor {

bool CFrameReader::ReadFrame() noexcept {
  Buffer buffer{};
  if (!ReadExactly(std::span(buffer).first<kHeaderSize>())) return false;

  if (buffer[0] != kIndicationStart) {
    ++m_health.badStartBytes;
    Resynchronise(buffer);
    return false;
  }
  const size_t bodySize = IndicationBodySize(buffer[1]);
  if (bodySize == 0) {
    ++m_health.unknownTypes;
    m_log.Print("** Error : Read Message type error 0x%02X ---> SI_FlushBuffers()\n", buffer[1]);
    m_port.Purge();
    return false;
  }
  if (!ReadExactly(std::span(buffer).subspan(kHeaderSize, bodySize))) return false;

  const auto frame = std::span<const uint8_t>(buffer).first(kHeaderSize + bodySize);
  ++m_health.framesRead;
  DumpFrame(m_log, FrameDirection::Received, frame);
  CheckDelimiters(frame);
  m_dispatcher.Dispatch(frame);
  return true;
}

bool CFrameReader::ReadExactly(std::span<uint8_t> target) noexcept {
  const std::optional<uint32_t> read = m_port.Read(target);
  if (!read) return false;
  if (*read == 0) {
    m_log.Print("Read size is %d.\n", 0);
    return false;
  }
  if (*read != target.size()) {
    m_log.Print("Read size unmatch. req=%d, exec=%d\n", static_cast<int>(target.size()),
                static_cast<int>(*read));
    return false;
  }
  return true;
}

// Reads queued bytes for the log, at most a buffer full, then flushes both directions whether or
// not anything was queued. If the device is lost meanwhile, there is nothing to flush.
void CFrameReader::Resynchronise(Buffer& buffer) noexcept {
  m_log.Print("** Error : Delimit error STX.(%02X)... ---> Exec SI_FlushBuffers()\n", buffer[0]);
  uint32_t queued = 0;
  if (m_port.CheckReceiveQueue(queued)) {
    buffer.fill(0);
    if (!m_port.Read(std::span(buffer).first(std::min<size_t>(queued, buffer.size())))) return;
    // Logs two bytes, however many were read: enough to recognise stray data.
    DumpFrame(m_log, FrameDirection::Received, std::span(buffer).first<kHeaderSize>());
  }
  if (m_port.IsOpen()) m_port.Purge();
}

// One correct delimiter is enough. A frame without any is logged but still used: its type already
// gave its length.
void CFrameReader::CheckDelimiters(std::span<const uint8_t> frame) noexcept {
  const uint8_t beforeLast = frame[frame.size() - 2];
  const uint8_t last = frame.back();
  if (beforeLast != kCarriageReturn && last != kLineFeed) {
    ++m_health.badDelimiters;
    m_log.Print("** Error : Delimit error.(0x%02X-0x%02X)\n", beforeLast, last);
  }
}

}  // namespace quor
