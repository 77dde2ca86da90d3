#include "contacts/hex_packing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace quor {
namespace {

// A block of digits at a time, one to a byte: two 64-bit lanes where the processor has them, a
// machine word elsewhere. A packed byte holds a digit of the text's first half above and one of its
// second half below, so that neither direction has to interleave anything.
#ifdef __SSE2__
using Block = uint64_t __attribute__((vector_size(16)));
constexpr uint64_t kEveryByte = 0x0101010101010101;
#else
using Block = size_t;
constexpr size_t kEveryByte = ~size_t{0} / 0xFF;
#endif
constexpr size_t kBlock = sizeof(Block);

Block Load(const void* from) noexcept {
  Block block{};
  std::memcpy(&block, from, kBlock);
  return block;
}

void Store(Block block, void* to) noexcept {
  std::memcpy(to, &block, kBlock);
}

bool IsZero(Block block) noexcept {
  std::array<size_t, kBlock / sizeof(size_t)> words{};
  std::memcpy(words.data(), &block, kBlock);
  return std::all_of(words.begin(), words.end(), [](size_t word) { return word == 0; });
}

// All bits of the bytes that are above the limit; of no interest for bytes from 0x80 on.
Block Above(Block bytes, char limit) noexcept {
#ifdef __SSE2__
  using Bytes = signed char __attribute__((vector_size(16)));
  return std::bit_cast<Block>(std::bit_cast<Bytes>(bytes) > static_cast<signed char>(limit));
#else
  const Block ones = (bytes & 0x7F * kEveryByte) + static_cast<Block>(0x7F - limit) * kEveryByte;
  return ((ones >> 7 & kEveryByte) << 8) - (ones >> 7 & kEveryByte);
#endif
}

Block ValuesOf(Block digits) noexcept {
  return ((digits & 0x0F * kEveryByte) + (Above(digits, '9') & 9 * kEveryByte)) & 0x0F * kEveryByte;
}

Block DigitsOf(Block values, HexCase hexCase) noexcept {
  const auto gap = static_cast<uint8_t>((hexCase == HexCase::Upper ? 'A' : 'a') - '9' - 1);
  return values + '0' * kEveryByte + (Above(values, 9) & gap * kEveryByte);
}

// Less than a block: too rare to be worth a way of its own, so it goes through a padded copy.
bool PackShort(std::string_view text, HexCase hexCase, std::span<uint8_t> bytes) noexcept {
  const size_t half = bytes.size();
  std::array<char, 2 * kBlock> padded;
  padded.fill('0');
  std::copy_n(text.begin(), half, padded.begin());
  std::copy_n(text.begin() + static_cast<std::ptrdiff_t>(half), half, padded.begin() + kBlock);
  std::array<uint8_t, kBlock> packed{};
  const bool isPacked = PackHex({padded.data(), padded.size()}, hexCase, packed);
  std::copy_n(packed.begin(), half, bytes.begin());
  return isPacked;
}

void UnpackShort(std::span<const uint8_t> bytes, HexCase hexCase, std::span<char> text) noexcept {
  const size_t half = bytes.size();
  std::array<uint8_t, kBlock> padded{};
  std::copy_n(bytes.begin(), half, padded.begin());
  std::array<char, 2 * kBlock> digits{};
  UnpackHex(padded, hexCase, digits);
  std::copy_n(digits.begin(), half, text.begin());
  std::copy_n(digits.begin() + kBlock, half, text.begin() + static_cast<std::ptrdiff_t>(half));
}

}  // namespace

bool PackHex(std::string_view text, HexCase hexCase, std::span<uint8_t> bytes) noexcept {
  const size_t half = text.size() / 2;
  if (half * 2 != text.size()) return false;
  if (half < kBlock) return PackShort(text, hexCase, bytes);
  const char* const first = text.data();
  const char* const second = first + half;
  Block lost{};
  const auto pack = [&](size_t i) {
    const Block above = Load(first + i);
    const Block below = Load(second + i);
    const Block aboveValues = ValuesOf(above);
    const Block belowValues = ValuesOf(below);
    lost |= (DigitsOf(aboveValues, hexCase) ^ above) | (DigitsOf(belowValues, hexCase) ^ below);
    Store(aboveValues << 4 | belowValues, bytes.data() + i);
  };
  for (size_t i = 0; i + kBlock <= half; i += kBlock)
    pack(i);
  pack(half - kBlock);  // the rest, with some that was packed before
  return IsZero(lost);
}

void UnpackHex(std::span<const uint8_t> bytes, HexCase hexCase, std::span<char> text) noexcept {
  const size_t half = bytes.size();
  if (half < kBlock) return UnpackShort(bytes, hexCase, text);
  char* const first = text.data();
  char* const second = first + half;
  const auto unpack = [&](size_t i) {
    const Block block = Load(bytes.data() + i);
    Store(DigitsOf(block >> 4 & 0x0F * kEveryByte, hexCase), first + i);
    Store(DigitsOf(block & 0x0F * kEveryByte, hexCase), second + i);
  };
  for (size_t i = 0; i + kBlock <= half; i += kBlock)
    unpack(i);
  unpack(half - kBlock);
}

}  // namespace quor
