#ifndef QUOR_CONTACTS_DIAL_TAIL_H
#define QUOR_CONTACTS_DIAL_TAIL_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace quor {

// At most twelve dial characters, four bits each. The symbols are numbered in the order of their
// bytes (# * 0..9 F P f p), so tails of one length compare as their texts do. The last character
// has the lowest bits: a shorter tail of the same number is a mask away.
struct DialTail {
  static constexpr unsigned kMaxLength = 12;

  uint64_t symbols = 0;
  unsigned length = 0;

  bool operator==(const DialTail&) const = default;
};

// As many of the text's last characters as there are.
constexpr std::string_view LastCharacters(std::string_view text, size_t length) noexcept {
  return length < text.size() ? text.substr(text.size() - length) : text;
}

// Eight characters; digits are less than 10 here, and nothing else is.
inline uint64_t LoadEightDigits(const char* text) noexcept {
  static_assert(std::endian::native == std::endian::little);
  uint64_t block = 0;
  std::memcpy(&block, text, sizeof(block));
  return block ^ 0x3030303030303030;
}
constexpr uint64_t BitsNoDigitHas(uint64_t block) noexcept {
  return (block | (block + 0x0606060606060606)) & 0xF0F0F0F0F0F0F0F0;
}
constexpr uint64_t SymbolsOfEightDigits(uint64_t block) noexcept {
  block += 0x0202020202020202;
  block = (block << 4 | block >> 8) & 0x00FF00FF00FF00FF;
  block = (block << 8 | block >> 16) & 0x0000FFFF0000FFFF;
  return (block << 16 | block >> 32) & 0xFFFFFFFF;
}

// Any twelve characters at most, one by one.
bool PackSymbols(std::string_view text, DialTail& tail) noexcept;

// False, and the tail left alone, if the text is too long or has other characters.
inline bool PackDialTail(std::string_view text, DialTail& tail) noexcept {
  const size_t length = text.size();
  if (length - 8 > DialTail::kMaxLength - 8) return PackSymbols(text, tail);
  // Numbers are nearly always digits: two overlapping blocks of them.
  const uint64_t first = LoadEightDigits(text.data());
  const uint64_t last = LoadEightDigits(text.data() + length - 8);
  if ((BitsNoDigitHas(first) | BitsNoDigitHas(last)) != 0) return PackSymbols(text, tail);
  tail = {SymbolsOfEightDigits(first) << (4 * (length - 8)) | SymbolsOfEightDigits(last),
          static_cast<unsigned>(length)};
  return true;
}

std::string UnpackDialTail(const DialTail& tail);

// The last `length` characters of a tail that has as many.
constexpr DialTail LastSymbols(const DialTail& tail, unsigned length) noexcept {
  return {tail.symbols & ((uint64_t{1} << (4 * length)) - 1), length};
}

// The top bit of each symbol that is F, P, f or p: 12 to 15.
constexpr uint64_t PauseMarks(const DialTail& tail) noexcept {
  return tail.symbols & (tail.symbols << 1) & 0x888888888888;
}
constexpr bool HasPauses(const DialTail& tail) noexcept {
  return PauseMarks(tail) != 0;
}
DialTail WithoutPauses(const DialTail& tail) noexcept;
DialTail WithUpperPauses(const DialTail& tail) noexcept;

// Left-aligned with the last character on top: tails with the same ending are neighbours.
uint64_t SymbolsBackwards(const DialTail& tail) noexcept;

}  // namespace quor

#endif
