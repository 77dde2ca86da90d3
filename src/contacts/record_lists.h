#ifndef QUOR_CONTACTS_RECORD_LISTS_H
#define QUOR_CONTACTS_RECORD_LISTS_H

#include <cstddef>
#include <cstdint>

#include "contacts/paged_array.h"

namespace quor {

// A contact's entry ID by its place in the index; never reused for another one.
using EntryId = uint32_t;
constexpr unsigned kEntryIdBits = 28;

// One owner of a key: which contact, and which of its numbers. Four bytes, because there are many.
struct Record {
  uint32_t word = 0;

  Record() = default;
  Record(EntryId entryId, int telNumberType) noexcept
      : word(entryId | static_cast<uint32_t>(telNumberType) << kEntryIdBits) {}

  EntryId Owner() const noexcept { return word & ((1U << kEntryIdBits) - 1); }
  int TelNumberType() const noexcept { return static_cast<int>(word >> kEntryIdBits); }
  bool operator==(const Record&) const = default;
};

// A key's records in the order in which they were added. Most keys have one record, or the same one
// over and over (each change of a contact adds it again): those are kept here, with their number.
// Any other sequence lives in CRecordLists, and `first` tells where.
struct RecordList {
  static constexpr unsigned kMaxRepeats = 62;
  static constexpr unsigned kElsewhere = 63;  // the largest value: six bits hold it

  Record first;
  unsigned repeats = 0;

  bool IsEmpty() const noexcept { return repeats == 0; }
  bool IsSingle() const noexcept { return repeats == 1; }
};

// Keeps the sequences that do not fit a RecordList, equal neighbours counted. A RecordList changes
// only through these operations, and is worth nothing afterwards but as what they left in it.
class CRecordLists {
 public:
  Record First(const RecordList& list) const noexcept;
  size_t Count(const RecordList& list) const noexcept;
  bool Contains(const RecordList& list, Record record) const noexcept;

  void Append(RecordList& list, Record record);
  bool RemoveFirst(RecordList& list, Record record) noexcept;
  RecordList Copy(const RecordList& list);

 private:
  // The runs of one list form a ring; the list points to its last one.
  struct Run {
    Record record;
    uint32_t next : 28;
    uint32_t count : 4;
  };
  static constexpr uint32_t kMaxCount = 15;
  static constexpr uint32_t kNone = (1U << 28) - 1;

  uint32_t NewRun(Record record);
  void AppendToRing(uint32_t& last, Record record, uint32_t count);
  void FreeRun(uint32_t run) noexcept;
  void Shrink(RecordList& list) noexcept;

  CPagedArray<Run> m_runs;
  uint32_t m_free = kNone;
};

}  // namespace quor

#endif
