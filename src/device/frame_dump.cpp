#include "device/frame_dump.h"

#include <new>
#include <string>

#include "text/format.h"

namespace quor {
namespace {

const char* Tag(FrameDirection direction) noexcept {
  switch (direction) {
    case FrameDirection::Sent:
      return "[S]";
    case FrameDirection::Received:
      return "[R]";
    case FrameDirection::Other:
      break;
  }
  return "[I]";
}

std::string DumpLine(FrameDirection direction, std::span<const uint8_t> bytes) {
  constexpr char kHexDigits[] = "0123456789ABCDEF";
  std::string line = Format("%s (%d)", Tag(direction), static_cast<int>(bytes.size()));
  line.reserve(line.size() + 3 * bytes.size() + 1);
  for (const unsigned byte : bytes) {
    line += {' ', kHexDigits[byte >> 4U], kHexDigits[byte & 0x0FU]};
  }
  line += '\n';
  return line;
}

}  // namespace

void DumpFrame(CDiagnosticLog& log, FrameDirection direction,
               std::span<const uint8_t> bytes) noexcept {
  if (!log.IsEnabled()) return;
  try {
    log.Write(DumpLine(direction, bytes));
  } catch (const std::bad_alloc&) {
    log.Write("** log line lost: out of memory\n");
  }
}

}  // namespace quor
