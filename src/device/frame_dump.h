#ifndef QUOR_DEVICE_FRAME_DUMP_H
#define QUOR_DEVICE_FRAME_DUMP_H

#include <cstdint>
#include <span>

#include "module/diagnostic_log.h"

namespace quor {

enum class FrameDirection { Sent, Received, Other };

// Logs one line such as "[S] (3) 2B 31 0D\n": tag ("[S]", "[R]" or "[I]"), byte count, bytes.
void DumpFrame(CDiagnosticLog& log, FrameDirection direction,
               std::span<const uint8_t> bytes) noexcept;

}  // namespace quor

#endif
