#include "contacts/phone_number_index.h"

#include <algorithm>

#include "contacts/dial_tail.h"
#include "contacts/tail_table.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr const char* kDeleteLine = "CAddin::DeleteContactSearchData";

bool IsIndexedType(int telNumberType) {
  return telNumberType >= kFirstTelNumberType && telNumberType <= kLastTelNumberType;
}

bool IsTable(int digit) {
  return digit >= 0 && digit <= kLastDigit;
}

// A single leading zero is the trunk prefix, which other networks leave out; two are the
// international one.
std::string_view WithoutTrunkPrefix(std::string_view number) {
  if (number.size() > kShortestTail && number[0] == '0' && number[1] != '0') {
    number.remove_prefix(1);
  }
  return number;
}

}  // namespace

void CPhoneNumberIndex::TelNoCheckAndUpdate(IContactItem& contact) {
  m_log.Write("CAddin::TelNoCheckAndUpdate\n");
  std::string entryId;
  if (!contact.ReadEntryId(entryId)) return;
  if (entryId.empty() && (!contact.Save() || !contact.ReadEntryId(entryId) || entryId.empty())) {
    return;
  }
  std::string fileAs;
  if (!contact.ReadFileAs(fileAs)) {
    m_log.Write("get_FileAs is failed\n");
    return;
  }
  std::optional<EntryId> id = m_entryIds.Find(entryId);
  std::string number;
  for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
    if (id) DeleteKeysOf(*id, type);
    GetContactTelNumber(contact, type, number);
    if (number.empty()) continue;
    if (!id) id = m_entryIds.Enter(entryId);
    EnterNumber(*id, number, type);
  }
  m_log.Write("CContactItem::TelNoCheckAndUpdate OK\n");
}

void CPhoneNumberIndex::OnContactItemDelete(IContactItem& contact) {
  m_log.Write("CAddin::OnContactItemDelete\n");
  std::string entryId;
  if (!contact.ReadEntryId(entryId) || entryId.empty()) return;
  if (const auto id = m_entryIds.Find(entryId)) {
    for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
      DeleteKeysOf(*id, type);
    }
  }
  m_log.Write("CAddin::OnContactItemDelete OK\n");
}

void CPhoneNumberIndex::AddContactSearchData(std::string_view number, std::string_view entryId,
                                             int telNumberType, std::string_view /*fileAs*/) {
  if (IsIndexedType(telNumberType)) EnterNumber(m_entryIds.Enter(entryId), number, telNumberType);
}

void CPhoneNumberIndex::InsertContactSearchData(int digit, std::string_view key,
                                                std::string_view entryId, int telNumberType,
                                                std::string_view /*fileAs*/) {
  if (!IsTable(digit) || !IsIndexedType(telNumberType)) return;
  EnterKey(m_entryIds.Enter(entryId), digit, std::string(key), telNumberType);
}

void CPhoneNumberIndex::DeleteContactSearchDataByEntryID(std::string_view entryId,
                                                         int telNumberType) {
  if (const auto id = m_entryIds.Find(entryId)) DeleteKeysOf(*id, telNumberType);
}

void CPhoneNumberIndex::DeleteContactSearchData(int digit, std::string_view key,
                                                std::string_view entryId, int telNumberType) {
  LogRecord(kDeleteLine, digit, key, entryId, telNumberType);
  const auto id = m_entryIds.Find(entryId);
  if (!id || !IsTable(digit) || !IsIndexedType(telNumberType)) return;
  const std::string text(key);
  m_tables.RemoveFirst(CSearchTables::MakeKey(digit, text), {*id, telNumberType});
}

inline void CPhoneNumberIndex::ReadRecord(Record record, ContactMatch& match) const {
  m_entryIds.Read(record.Owner(), match.entryId);
  match.telNumberType = record.TelNumberType();
}

inline bool CPhoneNumberIndex::TakeOnlyRecord(const TableKey& key, Record record,
                                              ContactMatch& match) {
  ReadRecord(record, match);
  if (m_directory.FindContactFileAs(match.entryId, match.name)) return true;
  m_tables.RemoveFirst(key, record);
  m_log.Write("CAddin::FindContactSearchData NG Contact Not Found(1)\n");
  return false;
}

inline bool CPhoneNumberIndex::TakeFirstRecord(const TableKey& key, const RecordList& records,
                                               std::string_view number, bool check,
                                               ContactMatch& match) {
  match.name.clear();
  if (!check) {
    ReadRecord(m_tables.Lists().First(records), match);
  } else if (!(records.IsSingle() ? TakeOnlyRecord(key, records.first, match)
                                  : TakeFirstThatOpens(key, number, match))) {
    return false;
  }
  m_log.Write("CAddin::FindContactSearchData OK\n");
  return true;
}

bool CPhoneNumberIndex::FindContactSearchData(int digit, std::string_view number, bool check,
                                              ContactMatch& match) {
  m_log.Write("CAddin::FindContactSearchData\n");
  TableKey key;
  RecordList records;
  if (IsTable(digit)) records = m_tables.FindFirstKey(digit, number, check, key);
  if (records.IsEmpty()) {
    m_log.Write("CAddin::FindContactSearchData NG\n");
    return false;
  }
  return TakeFirstRecord(key, records, number, check, match);
}

bool CPhoneNumberIndex::FindPhoneNumber(std::string_view number, bool check, ContactMatch& match) {
  m_log.Write("CAddin::FindPhoneNumber\n");
  const std::string_view tail = LastCharacters(WithoutTrunkPrefix(number), DialTail::kMaxLength);
  const int digit = DigitOfLength(static_cast<unsigned>(tail.size()));
  return FindContactSearchData(digit, tail, check, match);
}

bool CPhoneNumberIndex::SearchPhoneNumber(std::string_view number, bool check,
                                          ContactMatch& match) {
  m_log.Write("CAddin::SearchPhoneNumber\n");
  return SearchTails(WithoutTrunkPrefix(number), check, match);
}

void CPhoneNumberIndex::EnterNumber(EntryId id, std::string_view number, int telNumberType) {
  const std::string_view longest = LastCharacters(number, DialTail::kMaxLength);
  DialTail tail;
  if (PackDialTail(longest, tail)) {
    const int lowDigit = std::min(DigitOfLength(tail.length), 1);
    m_tables.AppendTails(tail, lowDigit, {id, telNumberType});
    m_entryIds.AddKeys(id, {tail, lowDigit, std::nullopt});
    return;
  }
  size_t length = std::min<size_t>(longest.size(), kShortestTail);
  for (; length <= longest.size(); ++length) {
    EnterKey(id, DigitOfLength(static_cast<unsigned>(length)),
             std::string(LastCharacters(longest, length)), telNumberType);
  }
}

void CPhoneNumberIndex::EnterKey(EntryId id, int digit, const std::string& key, int telNumberType) {
  const TableKey tableKey = CSearchTables::MakeKey(digit, key);
  m_tables.Append(tableKey, {id, telNumberType});
  KeyRun keys{tableKey.tail, digit, std::nullopt};
  if (tableKey.otherText != nullptr) keys.otherKey = m_entryIds.Enter(key);
  m_entryIds.AddKeys(id, keys);
}

void CPhoneNumberIndex::DeleteKeysOf(EntryId id, int telNumberType) {
  std::string entryId;
  while (const auto keys = m_entryIds.TakeFirstKeys(id)) {
    if (m_log.IsEnabled() || keys->otherKey) m_entryIds.Read(id, entryId);
    if (keys->otherKey) {
      std::string key;
      m_entryIds.Read(*keys->otherKey, key);
      DeleteContactSearchData(keys->lowDigit, key, entryId, telNumberType);
      continue;
    }
    const int highDigit = DigitOfLength(keys->tail.length);
    for (int digit = keys->lowDigit; m_log.IsEnabled() && digit <= highDigit; ++digit) {
      const DialTail key = digit == 0 ? keys->tail : LastSymbols(keys->tail, KeyLength(digit));
      LogRecord(kDeleteLine, digit, UnpackDialTail(key), entryId, telNumberType);
    }
    if (IsIndexedType(telNumberType)) {
      m_tables.RemoveFirstFromTails(keys->tail, keys->lowDigit, {id, telNumberType});
    }
  }
}

// Straight to the longest tail that is a key, and on to the next one only if its contacts are gone;
// but the log has lines for each table and tail that is tried.
bool CPhoneNumberIndex::SearchTails(std::string_view number, bool check, ContactMatch& match) {
  if (number.size() < kShortestTail) return false;
  DialTail tail;
  if (m_log.IsEnabled() || !PackDialTail(LastCharacters(number, DialTail::kMaxLength), tail) ||
      HasPauses(tail)) {
    return SearchEveryTail(number, check, match);
  }
  LongestKey longest;
  m_tables.FindLongest(tail, longest);
  if (longest.isMarked) return SearchEveryTail(number, check, match);
  if (longest.digit == 0) return false;
  const TableKey key{longest.digit, LastSymbols(tail, KeyLength(longest.digit)), nullptr};
  const std::string_view candidate = LastCharacters(number, key.tail.length);
  if (TakeFirstRecord(key, longest.records, candidate, check, match)) return true;
  return SearchTails(UnpackDialTail(LastSymbols(tail, key.tail.length - 1)), check, match);
}

bool CPhoneNumberIndex::SearchEveryTail(std::string_view wanted, bool check, ContactMatch& match) {
  const std::string kept(wanted);
  std::string_view number = kept;
  const size_t reachable = m_tables.ReachableLength(number);
  for (; number.size() > reachable && number.size() >= kShortestTail; number.remove_prefix(1)) {
    for (int digit = 0; digit <= kLastDigit; ++digit) {
      m_log.Write("CAddin::FindContactSearchData\n");
      m_log.Write("CAddin::FindContactSearchData NG\n");
    }
  }
  const std::string folded = RemovePauseChars(number);
  for (std::string_view candidate = folded; number.size() >= kShortestTail;) {
    for (int digit = 0; digit <= kLastDigit; ++digit) {
      if (FindContactSearchData(digit, candidate, check, match)) return true;
    }
    if (!IsPauseChar(number.front())) candidate.remove_prefix(1);
    number.remove_prefix(1);
  }
  return false;
}

// As many attempts as there are records now, though every one of them may change the list.
bool CPhoneNumberIndex::TakeFirstThatOpens(const TableKey& key, std::string_view number,
                                           ContactMatch& match) {
  const std::string kept(number);
  RecordList records = m_tables.Records(key);
  for (size_t left = m_tables.Lists().Count(records); left > 0 && !records.IsEmpty(); --left) {
    const Record record = m_tables.Lists().First(records);
    ReadRecord(record, match);
    if (m_directory.FindContactFileAs(match.entryId, match.name)) return true;
    LogRecord("Contact Data Not Found", key.digit, kept, match.entryId, match.telNumberType);
    m_tables.RemoveFirst(key, record);
    records = m_tables.Records(key);
  }
  m_log.Write("CAddin::FindContactSearchData NG Contact Not Found(1>)\n");
  return false;
}

void CPhoneNumberIndex::LogRecord(const char* what, int digit, std::string_view number,
                                  std::string_view entryId, int telNumberType) {
  if (!m_log.IsEnabled()) return;
  std::string line = what;
  line.append(" digit = ").append(std::to_string(digit));
  line.append(" number = ").append(number);
  line.append(" entryID = ").append(entryId);
  line.append(" telNumberType = ").append(std::to_string(telNumberType));
  m_log.Write(line.append("\n"));
}

}  // namespace quor
