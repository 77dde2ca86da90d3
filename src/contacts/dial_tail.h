#ifndef QUOR_CONTACTS_DIAL_TAIL_H
#define QUOR_CONTACTS_DIAL_TAIL_H

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quor {

// Up to twelve dial characters, four bits each, the last character lowest, so that masking gives a
// shorter tail of the same number. Tails of equal length compare like their texts.
struct DialTail {
  static constexpr unsigned kMaxLength = 12;

  uint64_t symbols = 0;
  unsigned length = 0;

  bool operator==(const DialTail&) const = default;
};

// The whole text if it is shorter.
constexpr std::string_view LastCharacters(std::string_view text, size_t length) noexcept {
  return length < text.size() ? text.substr(text.size() - length) : text;
}

// Returns nothing if the text is longer than a tail or has other characters.
std::optional<DialTail> PackDialTail(std::string_view text) noexcept;
std::string UnpackDialTail(const DialTail& tail);

// The whole tail if it is shorter.
constexpr DialTail LastSymbols(const DialTail& tail, unsigned length) noexcept {
  if (length >= tail.length) return tail;
  return {tail.symbols & ((uint64_t{1} << (4 * length)) - 1), length};
}

// Number of symbols that two tails share at their ends: 5 for 1712345 and 30912345.
constexpr unsigned CommonEnding(const DialTail& left, const DialTail& right) noexcept {
  const auto equalBits = static_cast<unsigned>(std::countr_zero(left.symbols ^ right.symbols));
  return std::min({equalBits / 4, left.length, right.length});
}

// The pause characters are the last four of the alphabet: 12 to 15.
constexpr bool HasPauses(const DialTail& tail) noexcept {
  return (tail.symbols & (tail.symbols << 1) & 0x888888888888) != 0;
}

DialTail FoldPauseChars(const DialTail& tail, bool check);
// The tail as look-ups compare it: without pause characters if `check` is true, otherwise in upper
// case.
inline DialTail FoldPauses(const DialTail& tail, bool check) {
  return HasPauses(tail) ? FoldPauseChars(tail, check) : tail;
}

}  // namespace quor

#endif
