#include "tests/contacts/naive_phone_index.h"

#include <algorithm>

#include "text/dial_chars.h"

namespace quor {
namespace {

void DropLeadingZero(std::string& number) {
  if (number.size() > 5 && number.substr(0, 2) != "00" && number[0] == '0') number.erase(0, 1);
}

bool Matches(const std::string& key, const std::string& number, bool check) {
  const std::string left = check ? RemovePauseChars(key) : key;
  const std::string right = check ? RemovePauseChars(number) : number;
  return left == right || UpperPauseChars(left) == UpperPauseChars(right);
}

}  // namespace

void CNaivePhoneIndex::TelNoCheckAndUpdate(IContactFields& contact) {
  m_log.Write("CAddin::TelNoCheckAndUpdate\n");
  std::string entryId;
  if (!contact.ReadEntryId(entryId)) return;
  if (entryId.empty()) {
    if (!contact.Save()) return;
    if (!contact.ReadEntryId(entryId)) return;
    if (entryId.empty()) return;
  }
  std::string fileAs;
  if (!contact.ReadFileAs(fileAs)) {
    m_log.Write("get_FileAs is failed\n");
    return;
  }
  for (int type = 1; type <= 12; ++type) {
    DeleteContactSearchDataByEntryID(entryId, type);
    std::string number;
    GetContactTelNumber(contact, type, number);
    number = FilterDialChars(number);
    if (!number.empty()) AddContactSearchData(number, entryId, type, fileAs);
  }
  m_log.Write("CContactItem::TelNoCheckAndUpdate OK\n");
}

void CNaivePhoneIndex::OnContactItemDelete(IContactFields& contact) {
  m_log.Write("CAddin::OnContactItemDelete\n");
  std::string entryId;
  if (!contact.ReadEntryId(entryId) || entryId.empty()) return;
  for (int type = 1; type <= 12; ++type)
    DeleteContactSearchDataByEntryID(entryId, type);
  m_gone.insert(entryId);
  m_log.Write("CAddin::OnContactItemDelete OK\n");
}

void CNaivePhoneIndex::AddContactSearchData(std::string_view number, std::string_view entryId,
                                            int telNumberType, std::string_view fileAs) {
  if (number.size() < 5) {
    InsertContactSearchData(0, number, entryId, telNumberType, fileAs);
    return;
  }
  for (size_t n = 5; n <= std::min<size_t>(number.size(), 12); ++n) {
    InsertContactSearchData(static_cast<int>(n) - 4, number.substr(number.size() - n), entryId,
                            telNumberType, fileAs);
  }
}

void CNaivePhoneIndex::InsertContactSearchData(int digit, std::string_view key,
                                               std::string_view entryId, int telNumberType,
                                               std::string_view /*fileAs*/) {
  m_tables[static_cast<size_t>(digit)][std::string(key)].push_back(
      {std::string(entryId), telNumberType});
  m_entryIdIndex[std::string(entryId)].emplace_back(digit, key);
  m_gone.erase(std::string(entryId));
}

void CNaivePhoneIndex::DeleteContactSearchDataByEntryID(std::string_view entryId,
                                                        int telNumberType) {
  const auto entry = m_entryIdIndex.find(std::string(entryId));
  if (entry == m_entryIdIndex.end()) return;
  for (const auto& [digit, key] : entry->second) {
    DeleteContactSearchData(digit, key, entryId, telNumberType);
  }
  m_entryIdIndex.erase(entry);
}

void CNaivePhoneIndex::DeleteContactSearchData(int digit, std::string_view key,
                                               std::string_view entryId, int telNumberType) {
  LogRecord("CAddin::DeleteContactSearchData", digit, key, entryId, telNumberType);
  SearchTable& table = m_tables[static_cast<size_t>(digit)];
  const auto found = table.find(std::string(key));
  if (found == table.end()) return;
  auto& records = found->second;
  for (auto record = records.begin(); record != records.end(); ++record) {
    if (record->entryId == entryId && record->telNumberType == telNumberType) {
      records.erase(record);
      break;
    }
  }
  if (records.empty()) table.erase(found);
}

bool CNaivePhoneIndex::FindContactSearchData(int digit, const std::string& number, bool check,
                                             ContactMatch& match) {
  m_log.Write("CAddin::FindContactSearchData\n");
  SearchTable& table = m_tables[static_cast<size_t>(digit)];
  auto key = table.begin();
  while (key != table.end() && !Matches(key->first, number, check))
    ++key;
  if (key == table.end()) {
    m_log.Write("CAddin::FindContactSearchData NG\n");
    return false;
  }
  match.entryId.clear();
  match.name.clear();
  if (!check || key->second.size() == 1) {
    match.entryId = key->second.front().entryId;
    match.telNumberType = key->second.front().telNumberType;
    if (check && !m_directory.FindContactFileAs(match.entryId, match.name)) {
      table.erase(key);
      m_log.Write("CAddin::FindContactSearchData NG Contact Not Found(1)\n");
      return false;
    }
  } else if (!TakeSeveral(digit, key, number, match)) {
    m_log.Write("CAddin::FindContactSearchData NG Contact Not Found(1>)\n");
    return false;
  }
  if (check) RateMatch(digit, number, match);
  m_log.Write("CAddin::FindContactSearchData OK\n");
  return true;
}

void CNaivePhoneIndex::RateMatch(int digit, const std::string& number, ContactMatch& match) const {
  std::set<std::string> others;
  for (const auto& [key, records] : m_tables[static_cast<size_t>(digit)]) {
    if (!Matches(key, number, true)) continue;
    for (const SearchRecord& record : records) {
      if (record.entryId != match.entryId && !m_gone.contains(record.entryId)) {
        others.insert(record.entryId);
      }
    }
  }
  match.matchedDigits = RemovePauseChars(number).size();
  match.moreContacts = others.size();
}

bool CNaivePhoneIndex::TakeSeveral(int digit, SearchTable::iterator key, const std::string& number,
                                   ContactMatch& match) {
  auto& records = key->second;
  bool opened = false;
  size_t failed = 0;
  for (; failed < records.size() && !opened; ++failed) {
    match.entryId = records[failed].entryId;
    match.telNumberType = records[failed].telNumberType;
    opened = m_directory.FindContactFileAs(match.entryId, match.name);
    if (opened) break;
    LogRecord("Contact Data Not Found", digit, number, match.entryId, match.telNumberType);
  }
  records.erase(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(failed));
  if (records.empty()) m_tables[static_cast<size_t>(digit)].erase(key);
  return opened;
}

bool CNaivePhoneIndex::FindPhoneNumber(std::string number, bool check, ContactMatch& match) {
  m_log.Write("CAddin::FindPhoneNumber\n");
  DropLeadingZero(number);
  if (number.size() < 5) return FindContactSearchData(0, number, check, match);
  if (number.size() >= 12) {
    return FindContactSearchData(8, number.substr(number.size() - 12), check, match);
  }
  return FindContactSearchData(static_cast<int>(number.size()) - 4, number, check, match);
}

bool CNaivePhoneIndex::SearchPhoneNumber(std::string number, bool check, ContactMatch& match) {
  m_log.Write("CAddin::SearchPhoneNumber\n");
  DropLeadingZero(number);
  for (; number.size() >= 5; number.erase(0, 1)) {
    const std::string candidate = RemovePauseChars(number);
    for (int digit = 0; digit <= 8; ++digit) {
      if (FindContactSearchData(digit, candidate, check, match)) return true;
    }
  }
  return false;
}

void CNaivePhoneIndex::LogRecord(const std::string& what, int digit, std::string_view number,
                                 std::string_view entryId, int telNumberType) {
  if (!m_log.IsEnabled()) return;
  m_log.Write(what + " digit = " + std::to_string(digit) + " number = " + std::string(number) +
              " entryID = " + std::string(entryId) +
              " telNumberType = " + std::to_string(telNumberType) + "\n");
}

}  // namespace quor
