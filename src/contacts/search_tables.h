#ifndef QUOR_CONTACTS_SEARCH_TABLES_H
#define QUOR_CONTACTS_SEARCH_TABLES_H

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "contacts/dial_tail.h"
#include "contacts/record_lists.h"
#include "contacts/tail_table.h"

namespace quor {

// One key of one table: dial characters of the table's length, or any other text, which somebody
// else keeps (CSearchTables for good, in the keys that it finds).
struct TableKey {
  int digit = 0;
  DialTail tail;
  const std::string* otherText = nullptr;
};

// The nine tables, their keys and the comparison of keys with numbers. Digits are 0 to kLastDigit.
//
// Numbers without pause characters, nearly all there are, equal at most one key of a table, and a
// look-up finds it. For the others the numbers that hold pause characters are also kept ordered
// backwards without them: those that can match are next to each other. Keys that are no dial
// strings, or not of their table's length, cannot come from a contact's filtered number; they are
// walked, and stay even without records.
class CSearchTables {
 public:
  CSearchTables() noexcept : m_dialKeys(m_lists) {}
  CSearchTables(const CSearchTables&) = delete;
  CSearchTables& operator=(const CSearchTables&) = delete;

  // The key refers to the text if need be.
  static TableKey MakeKey(int digit, const std::string& text);

  void Append(const TableKey& key, Record record);
  void RemoveFirst(const TableKey& key, Record record);
  // The same for the tail's own tails, in the tables from lowDigit to that of its length.
  void AppendTails(const DialTail& tail, int lowDigit, Record record);
  void RemoveFirstFromTails(const DialTail& tail, int lowDigit, Record record);

  // The records of the first key in byte order that matches the number; `check` as in
  // CPhoneNumberIndex::FindContactSearchData. Empty, and the key of no use, if none matches.
  RecordList FindFirstKey(int digit, std::string_view number, bool check, TableKey& key) const;
  RecordList Records(const TableKey& key) const;
  const CRecordLists& Lists() const noexcept { return m_lists; }

  // Which of the tails of a number of five symbols at least, pause characters not among them, is
  // the longest one that is a key. Marked if others that match it may exist as well: keys with
  // pause characters, or none of dial characters.
  void FindLongest(const DialTail& number, LongestKey& longest) const noexcept {
    m_dialKeys.FindLongest(number, longest);
  }
  // No tail of the number longer than this equals a key, pause characters left out or not.
  size_t ReachableLength(std::string_view number) const noexcept;

 private:
  using OtherKeys = std::map<std::string, RecordList, std::less<>>;

  RecordList FindFirstOfManyKeys(int digit, std::string_view number, bool check,
                                 TableKey& key) const;
  RecordList FindFirstDialKey(int digit, std::string_view number, bool check, DialTail& key) const;
  RecordList FindFirstPauseKey(int digit, const DialTail& number, bool check, DialTail& key) const;
  const OtherKeys::value_type* FindFirstOtherKey(int digit, std::string_view number,
                                                 bool check) const;
  void RememberPauses(const DialTail& tail);

  CRecordLists m_lists;
  CTailTable m_dialKeys;  // its marks: some key with pause characters, or another one, ends so
  std::set<std::pair<uint64_t, uint64_t>> m_pauseNumbers;  // backwards without pauses; as it stands
  std::array<OtherKeys, kLastDigit + 1> m_otherKeys;
  bool m_hasOtherKeys = false;
  size_t m_longestKey = DialTail::kMaxLength;
};

}  // namespace quor

#endif
