#ifndef QUOR_CONTACTS_NUMBER_KEYS_H
#define QUOR_CONTACTS_NUMBER_KEYS_H

#include <cstddef>
#include <cstdint>

#include "contacts/dial_tail.h"

namespace quor {

// Each table is named by its `digit`, 0 to 8. Table 0 holds whole numbers of fewer than five
// characters; the others hold the last digit + 4 characters of longer numbers.
constexpr unsigned kShortestTail = 5;
constexpr int kLastDigit = 8;

using TableMask = uint32_t;  // bit `digit` is set for each table

constexpr TableMask TableBit(int digit) noexcept {
  return TableMask{1} << digit;
}

// The table that holds the longest key of a number of up to twelve characters: 3 for 1712345.
constexpr int LongestDigit(size_t length) noexcept {
  return length < kShortestTail ? 0 : static_cast<int>(length) - 4;
}

constexpr TableMask TablesOfNumber(const DialTail& number) noexcept {
  if (number.length < kShortestTail) return TableBit(0);
  return 2 * TableBit(LongestDigit(number.length)) - TableBit(1);
}

// The table must be one of the number's tables.
constexpr DialTail KeyInTable(const DialTail& number, int digit) noexcept {
  return digit == 0 ? number : LastSymbols(number, static_cast<unsigned>(digit) + 4);
}

// A number and the tables that hold it, in eight bytes. Every number of every contact has one, so
// the packing avoids the padding of eight-byte alignment.
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
  static constexpr uint64_t kLengthUnit = uint64_t{1} << 48;  // above the twelve symbols
  static constexpr uint64_t kTablesUnit = uint64_t{1} << 52;

  uint64_t m_bits = 0;
};
#pragma pack(pop)

}  // namespace quor

#endif
