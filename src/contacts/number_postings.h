#ifndef QUOR_CONTACTS_NUMBER_POSTINGS_H
#define QUOR_CONTACTS_NUMBER_POSTINGS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "contacts/item_blocks.h"
#include "contacts/number_keys.h"
#include "contacts/place_table.h"

namespace quor {

// Owner and type of a number. The owner is an index into CEntryIds, below 2^28.
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

// The owners that a look-up found. Allocates memory only for the second one.
class CMetOwners {
 public:
  void Add(uint32_t owner) {
    if (!m_first) {
      m_first = owner;
    } else if (owner != (m_more.empty() ? *m_first : m_more.back())) {
      m_more.push_back(owner);
    }
  }
  // Each once, in no particular order.
  std::vector<uint32_t> Distinct() const;
  bool AreSeveral() const noexcept { return !m_more.empty(); }

 private:
  std::optional<uint32_t> m_first;
  std::vector<uint32_t> m_more;
};

// The nine tables, stored as one posting per number instead of one record per key. A posting holds
// the number, the tables that still hold its record, and how often the record was added.
//
// Postings whose keys end with the same five characters, pause characters left out, form a bucket;
// all possible matches of a look-up are in one bucket. A bucket keeps its postings in the order of
// insertion, and so the records of each key. The keys of a number with pause characters may belong
// to several buckets: those of 12345P67 end with 4567 (from 45P67) and 34567. Such a number has a
// posting in each.
class CNumberPostings {
 public:
  // Appends the record to each key.
  void Append(const CNumberKeys& keys, CRecord record);
  // Removes the first matching record from each key.
  void RemoveFirst(const CNumberKeys& keys, CRecord record);

  struct KeyRecords {
    DialTail key;
    CRecord first;
    size_t count;
    CMetOwners owners;  // of all keys that match, when checked
  };
  // Finds the first matching key in byte order. The caller has folded the number as FoldPauses does
  // for `check`.
  std::optional<KeyRecords> FindFirstKey(int digit, const DialTail& number, bool check) const;

  // No tail of the number longer than this equals a key, pause characters left out. The number must
  // have no pause characters.
  unsigned ReachableLength(const DialTail& number) const;

 private:
  struct Posting {
    CNumberKeys keys;
    CRecord record;
    uint32_t count = 0;

    bool IsEmpty() const noexcept { return keys.IsEmpty(); }
  };

  uint32_t FindBucket(const DialTail& ending) const;
  uint32_t& Bucket(const DialTail& ending);  // adds the bucket if it is missing
  DialTail EndingAt(uint32_t bucket) const;
  std::span<const Posting> PostingsNear(const DialTail& number) const;
  void AppendToBucket(uint32_t& bucket, const CNumberKeys& keys, CRecord record);
  void RemoveFromBucket(uint32_t& bucket, const CNumberKeys& keys, CRecord record);

  // An empty bucket is kept: its first item still holds the number that identifies it.
  CItemBlocks<Posting> m_postings;
  CPlaceTable m_buckets;
};

}  // namespace quor

#endif
