#ifndef QUOR_CONTACTS_NUMBER_POSTINGS_H
#define QUOR_CONTACTS_NUMBER_POSTINGS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "contacts/item_blocks.h"
#include "contacts/number_keys.h"
#include "contacts/place_table.h"

namespace quor {

// Whose number it is: an owner of CEntryIds, of which there are less than 2^28.
class CRecord {
 public:
  CRecord() = default;
  CRecord(uint32_t owner, int telNumberType) noexcept
      : m_bits(owner << 4 | static_cast<uint32_t>(telNumberType)) {}

  uint32_t Owner() const noexcept { return m_bits >> 4; }
  int TelNumberType() const noexcept { return static_cast<int>(m_bits & 0xF); }

  bool operator==(const CRecord&) const = default;

 private:
  uint32_t m_bits = 0;
};

// The nine tables, with one posting per number instead of a record per key: the number, which of
// the tables still hold the record, and how often.
//
// Postings whose keys end with the same five characters, pause characters left out, form a bucket;
// whatever a look-up can match is in one. A bucket keeps its postings in the order in which they
// were added, and with them the records of each of its keys. The keys of a number with pause
// characters may belong to several buckets: those of 12345P67 end with 4567 (45P67) and 34567. Such
// a number has a posting in each.
class CNumberPostings {
 public:
  // Appends the record to each key.
  void Append(const CNumberKeys& keys, CRecord record);
  // Removes the first such record from each key.
  void RemoveFirst(const CNumberKeys& keys, CRecord record);

  struct KeyRecords {
    DialTail key;
    CRecord first;
    size_t count;
  };
  // The first key in byte order that matches. The number is folded as `check` demands.
  std::optional<KeyRecords> FindFirstKey(int digit, const DialTail& number, bool check) const;

  // No longer tail of the number equals a key, pause characters left out. The number has none.
  unsigned ReachableLength(const DialTail& number) const;

 private:
  struct Posting {
    CNumberKeys keys;
    CRecord record;
    uint32_t count = 0;

    bool IsEmpty() const noexcept { return keys.IsEmpty(); }
  };

  uint32_t FindBucket(const DialTail& ending) const;
  uint32_t& Bucket(const DialTail& ending);  // adds it if need be
  DialTail EndingAt(uint32_t bucket) const;
  std::span<const Posting> PostingsNear(const DialTail& number) const;
  void AppendToBucket(uint32_t& bucket, const CNumberKeys& keys, CRecord record);
  void RemoveFromBucket(uint32_t& bucket, const CNumberKeys& keys, CRecord record);

  // A bucket that has become empty stays; its first item still has a number of it.
  CItemBlocks<Posting> m_postings;
  CPlaceTable m_buckets;
};

}  // namespace quor

#endif
