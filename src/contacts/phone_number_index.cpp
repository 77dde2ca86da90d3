#include "contacts/phone_number_index.h"

#include <algorithm>
#include <utility>

#include "contacts/dial_tail.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

constexpr const char* kDeleteLine = "CAddin::DeleteContactSearchData";

// Returns nothing if the key cannot be in the table.
std::optional<DialTail> PackKey(int digit, std::string_view key) {
  const auto tail = PackDialTail(key);
  if (!tail || LongestDigit(tail->length) != digit) return std::nullopt;
  return tail;
}

// A single leading zero is the trunk prefix, which callers from abroad omit; two are the
// international prefix.
std::string_view WithoutTrunkPrefix(std::string_view number) {
  if (number.size() > kShortestTail && number[0] == '0' && number[1] != '0') {
    number.remove_prefix(1);
  }
  return number;
}

}  // namespace

void CPhoneNumberIndex::TelNoCheckAndUpdate(IContactFields& contact) {
  std::string entryId;
  if (!BeginTelNoCheckAndUpdate(contact, entryId, m_log)) return;
  std::optional<uint32_t> owner = m_entryIds.Find(entryId);
  std::string number;
  for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
    if (owner) DeleteKeysOf(*owner, type);
    GetContactTelNumber(contact, type, number);
    if (number.empty()) continue;
    if (!owner) owner = m_entryIds.Enter(entryId);
    EnterNumber(*owner, number, type);
  }
  m_log.Write("CContactItem::TelNoCheckAndUpdate OK\n");
}

void CPhoneNumberIndex::OnContactItemDelete(IContactFields& contact) {
  m_log.Write("CAddin::OnContactItemDelete\n");
  std::string entryId;
  if (!contact.ReadEntryId(entryId) || entryId.empty()) return;
  for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
    DeleteContactSearchDataByEntryID(entryId, type);
  }
  if (const auto owner = m_entryIds.Find(entryId)) m_entryIds.MarkGone(*owner);
  m_log.Write("CAddin::OnContactItemDelete OK\n");
}

void CPhoneNumberIndex::AddContactSearchData(std::string_view number, std::string_view entryId,
                                             int telNumberType, std::string_view /*fileAs*/) {
  if (IsTelNumberType(telNumberType)) EnterNumber(m_entryIds.Enter(entryId), number, telNumberType);
}

void CPhoneNumberIndex::InsertContactSearchData(int digit, std::string_view key,
                                                std::string_view entryId, int telNumberType,
                                                std::string_view /*fileAs*/) {
  const auto tail = PackKey(digit, key);
  if (!tail || !IsTelNumberType(telNumberType)) return;
  EnterKeys(m_entryIds.Enter(entryId), {*tail, TableBit(digit)}, telNumberType);
}

void CPhoneNumberIndex::DeleteContactSearchDataByEntryID(std::string_view entryId,
                                                         int telNumberType) {
  if (const auto owner = m_entryIds.Find(entryId)) DeleteKeysOf(*owner, telNumberType);
}

void CPhoneNumberIndex::DeleteContactSearchData(int digit, std::string_view key,
                                                std::string_view entryId, int telNumberType) {
  LogRecord(kDeleteLine, digit, key, entryId, telNumberType);
  const auto tail = PackKey(digit, key);
  const auto owner = m_entryIds.Find(entryId);
  if (!tail || !owner || !IsTelNumberType(telNumberType)) return;
  m_postings.RemoveFirst({*tail, TableBit(digit)}, CRecord(*owner, telNumberType));
}

bool CPhoneNumberIndex::FindContactSearchData(int digit, std::string_view number, bool check,
                                              ContactMatch& match) {
  const auto folded = PackDialTail(check ? RemovePauseChars(number) : UpperPauseChars(number));
  return FindInTable(digit, number, folded, check, match);
}

bool CPhoneNumberIndex::FindPhoneNumber(std::string_view number, bool check, ContactMatch& match) {
  m_log.Write("CAddin::FindPhoneNumber\n");
  const std::string_view tail = LastCharacters(WithoutTrunkPrefix(number), DialTail::kMaxLength);
  return FindContactSearchData(LongestDigit(tail.size()), tail, check, match);
}

bool CPhoneNumberIndex::SearchPhoneNumber(std::string_view number, bool check,
                                          ContactMatch& match) {
  m_log.Write("CAddin::SearchPhoneNumber\n");
  const std::string kept(WithoutTrunkPrefix(number));
  const std::string folded = RemovePauseChars(kept);
  const size_t reachable = ReachableLength(folded);
  std::string_view candidate = folded;
  for (size_t first = 0; first + kShortestTail <= kept.size(); ++first) {
    if (candidate.size() > reachable) {
      LogMissInEveryTable();
    } else if (FindInEveryTable(candidate, check, match)) {
      return true;
    }
    if (!IsPauseChar(kept[first])) candidate.remove_prefix(1);
  }
  return false;
}

void CPhoneNumberIndex::EnterNumber(uint32_t owner, std::string_view number, int telNumberType) {
  const auto tail = PackDialTail(LastCharacters(number, DialTail::kMaxLength));
  if (tail) EnterKeys(owner, {*tail, TablesOfNumber(*tail)}, telNumberType);
}

void CPhoneNumberIndex::EnterKeys(uint32_t owner, const CNumberKeys& keys, int telNumberType) {
  m_postings.Append(keys, CRecord(owner, telNumberType));
  m_entryIds.AppendKeys(owner, keys);
}

void CPhoneNumberIndex::DeleteKeysOf(uint32_t owner, int telNumberType) {
  std::string entryId;
  if (m_log.IsEnabled()) m_entryIds.Read(owner, entryId);
  for (const CNumberKeys& keys : m_entryIds.TakeKeys(owner)) {
    for (int digit = 0; m_log.IsEnabled() && digit <= kLastDigit; ++digit) {
      if ((keys.Tables() & TableBit(digit)) == 0) continue;
      LogRecord(kDeleteLine, digit, UnpackDialTail(KeyInTable(keys.Number(), digit)), entryId,
                telNumberType);
    }
    if (IsTelNumberType(telNumberType)) {
      m_postings.RemoveFirst(keys, CRecord(owner, telNumberType));
    }
  }
}

// Longer tails match nothing. At least four, because tails shorter than five characters, which
// numbers with pause characters can have, may be in other buckets.
size_t CPhoneNumberIndex::ReachableLength(std::string_view folded) const {
  const auto tail = PackDialTail(LastCharacters(folded, DialTail::kMaxLength));
  if (!tail) return DialTail::kMaxLength;
  return std::max(m_postings.ReachableLength(*tail), kShortestTail - 1);
}

bool CPhoneNumberIndex::FindInEveryTable(std::string_view number, bool check, ContactMatch& match) {
  const auto folded = PackDialTail(number);
  for (int digit = 0; digit <= kLastDigit; ++digit) {
    if (FindInTable(digit, number, folded, check, match)) return true;
  }
  return false;
}

bool CPhoneNumberIndex::FindInTable(int digit, std::string_view number,
                                    const std::optional<DialTail>& folded, bool check,
                                    ContactMatch& match) {
  m_log.Write("CAddin::FindContactSearchData\n");
  std::optional<CNumberPostings::KeyRecords> found;
  if (folded && digit >= 0 && digit <= kLastDigit) {
    found = m_postings.FindFirstKey(digit, *folded, check);
  }
  if (!found) {
    m_log.Write("CAddin::FindContactSearchData NG\n");
    return false;
  }
  match.name.clear();
  if (!check) {
    ReadRecord(found->first, match);
  } else if (!(found->count == 1 ? TakeOnlyRecord(digit, *found, match)
                                 : TakeFirstThatOpens(digit, number, *std::move(found), match))) {
    return false;
  }
  m_log.Write("CAddin::FindContactSearchData OK\n");
  return true;
}

bool CPhoneNumberIndex::TakeOnlyRecord(int digit, const CNumberPostings::KeyRecords& only,
                                       ContactMatch& match) {
  ReadRecord(only.first, match);
  if (m_directory.FindContactFileAs(match.entryId, match.name)) {
    RateMatch(only, only.first, match);
    return true;
  }
  m_postings.RemoveFirst({only.key, TableBit(digit)}, only.first);
  m_log.Write("CAddin::FindContactSearchData NG Contact Not Found(1)\n");
  return false;
}

// Tries as many records as the key has now, although each try may change the list.
bool CPhoneNumberIndex::TakeFirstThatOpens(int digit, std::string_view number,
                                           CNumberPostings::KeyRecords several,
                                           ContactMatch& match) {
  const std::string kept(number);
  const DialTail key = several.key;
  const DialTail folded = FoldPauses(key, true);
  size_t left = several.count;
  std::optional<CNumberPostings::KeyRecords> found = std::move(several);
  for (; left > 0 && found && found->key == key; --left) {
    const CRecord record = found->first;
    ReadRecord(record, match);
    if (m_directory.FindContactFileAs(match.entryId, match.name)) {
      RateMatch(*found, record, match);
      return true;
    }
    LogRecord("Contact Data Not Found", digit, kept, match.entryId, match.telNumberType);
    m_postings.RemoveFirst({key, TableBit(digit)}, record);
    found = m_postings.FindFirstKey(digit, folded, true);
  }
  m_log.Write("CAddin::FindContactSearchData NG Contact Not Found(1>)\n");
  return false;
}

void CPhoneNumberIndex::ReadRecord(CRecord record, ContactMatch& match) const {
  m_entryIds.Read(record.Owner(), match.entryId);
  match.telNumberType = record.TelNumberType();
}

// Contacts that have been deleted may still have records.
void CPhoneNumberIndex::RateMatch(const CNumberPostings::KeyRecords& found, CRecord record,
                                  ContactMatch& match) const {
  match.matchedDigits = FoldPauses(found.key, true).length;
  match.moreContacts = 0;
  if (!found.owners.AreSeveral()) return;
  for (const uint32_t owner : found.owners.Distinct()) {
    if (owner != record.Owner() && !m_entryIds.IsGone(owner)) ++match.moreContacts;
  }
}

void CPhoneNumberIndex::LogMissInEveryTable() {
  if (!m_log.IsEnabled()) return;
  for (int digit = 0; digit <= kLastDigit; ++digit) {
    m_log.Write("CAddin::FindContactSearchData\n");
    m_log.Write("CAddin::FindContactSearchData NG\n");
  }
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
