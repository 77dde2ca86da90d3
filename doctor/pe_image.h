#ifndef QUOR_DOCTOR_PE_IMAGE_H
#define QUOR_DOCTOR_PE_IMAGE_H

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quor::doctor {

// Facts about a DLL of any bitness, read from the file because a 32-bit program cannot load a
// 64-bit DLL.
struct PeImage {
  int bitness = 0;                 // 32 or 64 for Intel processors, 0 for others
  std::vector<uint32_t> ordinals;  // exported ordinals, ascending

  bool Exports(uint32_t ordinal) const;
};

// Parses a file's bytes. Returns nothing if they are not a Windows program or DLL; an export table
// that leaves the file gives no ordinals. Any bytes are accepted.
std::optional<PeImage> ReadPeImage(std::span<const uint8_t> file);

}  // namespace quor::doctor

#endif
