#ifndef QUOR_CONTACTS_TAIL_TABLE_H
#define QUOR_CONTACTS_TAIL_TABLE_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "contacts/dial_tail.h"
#include "contacts/record_lists.h"

namespace quor {

constexpr int kLastDigit = 8;  // of the nine tables 0 to 8
constexpr unsigned kShortestTail = 5;

constexpr unsigned KeyLength(int digit) noexcept {
  return static_cast<unsigned>(digit) + 4;
}
constexpr int DigitOfLength(unsigned length) noexcept {
  return length < kShortestTail ? 0 : static_cast<int>(length) - 4;
}

// Filled in place: returned in registers, its parts would be put together through memory.
struct LongestKey {
  int digit = 0;  // none
  RecordList records;
  bool isMarked = false;  // CTailTable::Mark
};

// Record lists of keys made of dial characters, in the nine tables at once. Keys are compared as
// they stand here; what pause characters do to a comparison is the caller's business.
//
// A number's tails nearly always have the same records, so they share one span: the digits `low` to
// `high` of one tail of digit + 4 symbols. Where two numbers part, or a record is dropped from one
// of the tables only, spans are split. The spans of a number follow upon each other from digit 1 on
// without a gap: whoever knows that no span begins with a number's last five symbols knows that
// none of its tails is here. Spans are found by hashing their shortest tail.
class CTailTable {
 public:
  explicit CTailTable(CRecordLists& lists) noexcept : m_lists(lists) {}

  // Empty if the key has no records. key.length belongs to the digit's table.
  RecordList Find(int digit, const DialTail& key) const noexcept;
  // The longest of the tail's own tails with records; the tail has five symbols at least.
  void FindLongest(const DialTail& tail, LongestKey& longest) const noexcept;

  // Marks everything that ends with these five symbols, for the caller to use. Marks stay.
  void Mark(const DialTail& ending);

  // In the tables from lowDigit to that of the tail's length.
  void Append(const DialTail& tail, int lowDigit, Record record);
  void RemoveFirst(const DialTail& tail, int lowDigit, Record record);

 private:
  static constexpr size_t kNone = SIZE_MAX;
  static constexpr uint64_t kSymbolBits = (uint64_t{1} << 48) - 1;

  // key: symbols 0-47, low 48-51, high 52-55, repeats 56-61, marked 62, used 63; in halves, so that
  // twelve bytes are enough.
  struct Span {
    std::array<uint32_t, 2> key{};
    Record first;

    uint64_t Key() const noexcept { return std::bit_cast<uint64_t>(key); }
    bool IsUsed() const noexcept { return (key[1] >> 31) != 0; }
    bool IsMarked() const noexcept { return (key[1] >> 30 & 1) != 0; }
    int Low() const noexcept { return static_cast<int>(key[1] >> 16 & 0xF); }
    int High() const noexcept { return static_cast<int>(key[1] >> 20 & 0xF); }
    uint64_t Symbols() const noexcept { return Key() & kSymbolBits; }
    RecordList Records() const noexcept { return {first, key[1] >> 24 & 0x3F}; }
    void SetRecords(const RecordList& list) noexcept;
    void SetHigh(int digit) noexcept;
  };

  // The place from which on a span is looked for, and the tag that is looked for.
  struct Home {
    size_t place;
    uint8_t tag;
  };

  static uint64_t StartKey(uint64_t symbols, int low) noexcept;
  static uint64_t StartMask(int low) noexcept;
  Home HomeOf(uint64_t startKey) const noexcept;
  Home HomeOf(const Span& span) const noexcept {
    return HomeOf(StartKey(span.Symbols(), span.Low()));
  }
  size_t Wrapped(size_t place) const noexcept {
    return place < m_spans.size() ? place : place - m_spans.size();
  }

  size_t FindStart(uint64_t symbols, int low) const noexcept;
  uint64_t Tags(size_t place) const noexcept;  // of eight places, that one first
  void SetTag(size_t place, uint8_t tag) noexcept;
  static int AgreedDigit(const Span& span, uint64_t symbols) noexcept;
  bool HasLongerTail(const Span& span) const noexcept;

  size_t Create(uint64_t symbols, int low, int high, const RecordList& list);
  size_t Place(const Span& span) noexcept;
  void Grow();
  size_t SplitAfter(size_t place, int digit);
  void Erase(size_t place) noexcept;
  void EraseUnused(const DialTail& tail) noexcept;

  CRecordLists& m_lists;
  std::vector<Span> m_spans;
  // By place, kVacant or seven bits of the hash, so that several places are looked at together; the
  // first ones again at the end.
  std::vector<uint8_t> m_tags;
  size_t m_used = 0;
};

}  // namespace quor

#endif
