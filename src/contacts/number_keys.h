#ifndef QUOR_CONTACTS_NUMBER_KEYS_H
#define QUOR_CONTACTS_NUMBER_KEYS_H

#include <cstddef>
#include <cstdint>

#include "contacts/dial_tail.h"

namespace quor {

// Tables are called by their `digit`, 0 to 8: table 0 has whole numbers shorter than five
// characters as keys, the others the last digit + 4 characters of longer ones.
constexpr unsigned kShortestTail = 5;
constexpr int kLastDigit = 8;

using TableMask = uint32_t;  // bit `digit` for each table

constexpr TableMask TableBit(int digit) noexcept {
  return TableMask{1} << digit;
}

// The table of the longest key of a number of up to twelve characters.
constexpr int LongestDigit(size_t length) noexcept {
  return length < kShortestTail ? 0 : static_cast<int>(length) - 4;
}

constexpr TableMask TablesOfNumber(const DialTail& number) noexcept {
  if (number.length < kShortestTail) return TableBit(0);
  return 2 * TableBit(LongestDigit(number.length)) - TableBit(1);
}

// The number must be in the table.
constexpr DialTail KeyInTable(const DialTail& number, int digit) noexcept {
  return digit == 0 ? number : LastSymbols(number, static_cast<unsigned>(digit) + 4);
}

// The keys of a number in some of its tables, in eight bytes. There is one for every number of
// every contact, so it does without the padding that eight-byte alignment brings.
#pragma pack(push, 4)
class CNumberKeys {
 public:
  CNumberKeys() = default;
  CNumberKeys(const DialTail& number, TableMask tables) noexcept
      : m_bits(number.symbols + number.length * kLengthUnit + tables * kTablesUnit) {}

  DialTail Number() const noexcept {
    return {m_bits % kLengthUnit, static_cast<unsigned>(m_bits % kTablesUnit / kLengthUnit)};
  }
  bool IsEmpty() const noexcept { return Tables() == 0; }
  TableMask Tables() const noexcept { return static_cast<TableMask>(m_bits / kTablesUnit); }

  bool operator==(const CNumberKeys&) const = default;

 private:
  static constexpr uint64_t kLengthUnit = uint64_t{1} << 48;  // above twelve symbols
  static constexpr uint64_t kTablesUnit = uint64_t{1} << 52;

  uint64_t m_bits = 0;
};
#pragma pack(pop)

}  // namespace quor

#endif
