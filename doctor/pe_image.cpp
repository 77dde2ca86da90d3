#include "doctor/pe_image.h"

#include <algorithm>
#include <limits>

namespace quor::doctor {
namespace {

constexpr uint16_t kDosSignature = 0x5A4D;
constexpr uint32_t kPeSignature = 0x00004550;
constexpr uint16_t kMachineI386 = 0x014C;
constexpr uint16_t kMachineAmd64 = 0x8664;
constexpr uint16_t kOptional32 = 0x010B;
constexpr uint16_t kOptional64 = 0x020B;
constexpr uint32_t kMostFunctions = 65536;  // ordinals have 16 bits

// Offsets in the headers, from the file format.
constexpr size_t kPeOffsetAt = 0x3C;
constexpr size_t kFileHeaderSize = 20;
constexpr size_t kSectionHeaderSize = 40;

// Reads the file's little-endian numbers; beyond the end they are 0.
class CBytes {
 public:
  explicit CBytes(std::span<const uint8_t> file) : m_file(file) {}

  uint16_t Word(size_t at) const { return static_cast<uint16_t>(Number(at, 2)); }
  uint32_t Dword(size_t at) const { return Number(at, 4); }

 private:
  uint32_t Number(size_t at, size_t size) const {
    if (at > m_file.size() || m_file.size() - at < size) return 0;
    uint32_t number = 0;
    for (size_t i = size; i > 0; --i) {
      number = number << 8 | m_file[at + i - 1];
    }
    return number;
  }

  std::span<const uint8_t> m_file;
};

struct Headers {
  size_t optional = 0;  // offset of the optional header
  size_t sections = 0;  // offset of the section table
  size_t sectionCount = 0;
  bool wide = false;  // PE32+
};

constexpr size_t kNowhere = std::numeric_limits<size_t>::max();

// The file offset of the content loaded at this relative address.
size_t FileOffset(const CBytes& bytes, const Headers& headers, uint32_t address) {
  for (size_t i = 0; i < headers.sectionCount; ++i) {
    const size_t section = headers.sections + i * kSectionHeaderSize;
    const uint32_t start = bytes.Dword(section + 12);
    const uint32_t size = bytes.Dword(section + 16);  // in the file
    if (address >= start && address - start < size) {
      return size_t{bytes.Dword(section + 20)} + (address - start);
    }
  }
  return kNowhere;
}

std::vector<uint32_t> ReadOrdinals(const CBytes& bytes, const Headers& headers) {
  // The data directories are at the end of the optional header; the first one is the exports.
  const uint32_t exports = bytes.Dword(headers.optional + (headers.wide ? 112 : 96));
  if (exports == 0) return {};
  const size_t directory = FileOffset(bytes, headers, exports);
  if (directory == kNowhere) return {};
  const uint32_t base = bytes.Dword(directory + 16);
  const uint32_t count = std::min(bytes.Dword(directory + 20), kMostFunctions);
  const size_t functions = FileOffset(bytes, headers, bytes.Dword(directory + 28));
  if (functions == kNowhere) return {};
  std::vector<uint32_t> ordinals;
  for (uint32_t i = 0; i < count; ++i) {
    if (bytes.Dword(functions + size_t{i} * 4) != 0) ordinals.push_back(base + i);
  }
  return ordinals;
}

}  // namespace

bool PeImage::Exports(uint32_t ordinal) const {
  return std::ranges::binary_search(ordinals, ordinal);
}

std::optional<PeImage> ReadPeImage(std::span<const uint8_t> file) {
  const CBytes bytes(file);
  if (bytes.Word(0) != kDosSignature) return std::nullopt;
  const size_t pe = bytes.Dword(kPeOffsetAt);
  if (bytes.Dword(pe) != kPeSignature) return std::nullopt;
  const size_t header = pe + 4;
  Headers headers;
  headers.optional = header + kFileHeaderSize;
  headers.sectionCount = bytes.Word(header + 2);
  headers.sections = headers.optional + bytes.Word(header + 16);
  const uint16_t kind = bytes.Word(headers.optional);
  if (kind != kOptional32 && kind != kOptional64) return std::nullopt;
  headers.wide = kind == kOptional64;

  PeImage image;
  const uint16_t machine = bytes.Word(header);
  if (machine == kMachineI386) image.bitness = 32;
  if (machine == kMachineAmd64) image.bitness = 64;
  image.ordinals = ReadOrdinals(bytes, headers);
  // Ordinals may wrap around, so they need sorting.
  std::ranges::sort(image.ordinals);
  return image;
}

}  // namespace quor::doctor
