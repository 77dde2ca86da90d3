#ifndef QUOR_DOCTOR_PE_IMAGE_H
#define QUOR_DOCTOR_PE_IMAGE_H

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quor::doctor {

// What a DLL says of itself, whichever bitness it has: a 32-bit program cannot load a 64-bit one.
struct PeImage {
  int bitness = 0;                 // 32 or 64 for Intel processors, 0 for others
  std::vector<uint32_t> ordinals;  // exported ones, ascending

  bool Exports(uint32_t ordinal) const;
};

// Reads a file's bytes. Nothing when they are no Windows program or DLL; an export table that leads
// out of the file has no ordinals. Any bytes are safe to give.
std::optional<PeImage> ReadPeImage(std::span<const uint8_t> file);

}  // namespace quor::doctor

#endif
