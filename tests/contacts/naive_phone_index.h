#ifndef QUOR_TESTS_CONTACTS_NAIVE_PHONE_INDEX_H
#define QUOR_TESTS_CONTACTS_NAIVE_PHONE_INDEX_H

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "contacts/contact_directory.h"
#include "contacts/contact_fields.h"
#include "contacts/phone_number_index.h"
#include "module/diagnostic_log.h"
#include "text/dial_chars.h"

namespace quor {

// The index as its documentation describes it: nine ordered maps, walked from the first key, and a
// tenth for the keys of each contact. Slow on purpose; the real index is compared with it.
class CNaivePhoneIndex {
 public:
  struct SearchRecord {
    std::string entryId;
    int telNumberType;
    bool operator==(const SearchRecord&) const = default;
  };
  using SearchTable = std::map<std::string, std::vector<SearchRecord>>;

  CNaivePhoneIndex(IContactDirectory& directory, CDiagnosticLog& log)
      : m_directory(directory), m_log(log) {}

  SearchTable& Table(int digit) { return m_tables.at(static_cast<size_t>(digit)); }

  static int TableOf(size_t length) { return length < 5 ? 0 : static_cast<int>(length) - 4; }

  void TelNoCheckAndUpdate(IContactFields& contact) {
    std::string entryId;
    if (!BeginTelNoCheckAndUpdate(contact, entryId, m_log)) return;
    for (int type = 1; type <= 12; ++type) {
      DeleteContactSearchDataByEntryID(entryId, type);
      std::string number;
      GetContactTelNumber(contact, type, number);
      if (!number.empty()) AddContactSearchData(number, entryId, type, "");
    }
    m_log.Write("CContactItem::TelNoCheckAndUpdate OK\n");
  }

  void OnContactItemDelete(IContactFields& contact) {
    m_log.Write("CAddin::OnContactItemDelete\n");
    std::string entryId;
    if (!contact.ReadEntryId(entryId) || entryId.empty()) return;
    for (int type = 1; type <= 12; ++type)
      DeleteContactSearchDataByEntryID(entryId, type);
    m_gone.insert(entryId);
    m_log.Write("CAddin::OnContactItemDelete OK\n");
  }

  void AddContactSearchData(const std::string& number, const std::string& entryId,
                            int telNumberType, const std::string& fileAs) {
    const size_t longest = std::min<size_t>(number.size(), 12);
    for (size_t length = std::min<size_t>(longest, 5); length <= longest; ++length) {
      InsertContactSearchData(TableOf(length), number.substr(number.size() - length), entryId,
                              telNumberType, fileAs);
    }
  }

  void InsertContactSearchData(int digit, const std::string& key, const std::string& entryId,
                               int telNumberType, const std::string& /*fileAs*/) {
    Table(digit)[key].push_back({entryId, telNumberType});
    m_entryIdIndex[entryId].emplace_back(digit, key);
    m_gone.erase(entryId);
  }

  void DeleteContactSearchDataByEntryID(const std::string& entryId, int telNumberType) {
    for (const auto& [digit, key] : std::exchange(m_entryIdIndex[entryId], {}))
      DeleteContactSearchData(digit, key, entryId, telNumberType);
  }

  void DeleteContactSearchData(int digit, const std::string& key, const std::string& entryId,
                               int telNumberType) {
    LogRecord("CAddin::DeleteContactSearchData", digit, key, {entryId, telNumberType});
    const auto found = Table(digit).find(key);
    if (found == Table(digit).end()) return;
    auto& records = found->second;
    const auto record = std::ranges::find(records, SearchRecord{entryId, telNumberType});
    if (record != records.end()) records.erase(record);
    if (records.empty()) Table(digit).erase(found);
  }

  bool FindContactSearchData(int digit, const std::string& number, bool check,
                             ContactMatch& match) {
    m_log.Write("CAddin::FindContactSearchData\n");
    const auto key = std::ranges::find_if(
        Table(digit), [&](const auto& entry) { return Matches(entry.first, number, check); });
    if (key == Table(digit).end()) {
      m_log.Write("CAddin::FindContactSearchData NG\n");
      return false;
    }
    match.name.clear();
    auto& records = key->second;
    const bool isOnly = records.size() == 1;
    while (!records.empty()) {
      match.entryId = records.front().entryId;
      match.telNumberType = records.front().telNumberType;
      if (!check || m_directory.FindContactFileAs(match.entryId, match.name)) {
        if (check) RateMatch(digit, number, match);
        m_log.Write("CAddin::FindContactSearchData OK\n");
        return true;
      }
      if (!isOnly) LogRecord("Contact Data Not Found", digit, number, records.front());
      records.erase(records.begin());
    }
    Table(digit).erase(key);
    m_log.Write(isOnly ? "CAddin::FindContactSearchData NG Contact Not Found(1)\n"
                       : "CAddin::FindContactSearchData NG Contact Not Found(1>)\n");
    return false;
  }

  bool FindPhoneNumber(std::string number, bool check, ContactMatch& match) {
    m_log.Write("CAddin::FindPhoneNumber\n");
    DropLeadingZero(number);
    if (number.size() > 12) number.erase(0, number.size() - 12);
    return FindContactSearchData(TableOf(number.size()), number, check, match);
  }

  bool SearchPhoneNumber(std::string number, bool check, ContactMatch& match) {
    m_log.Write("CAddin::SearchPhoneNumber\n");
    DropLeadingZero(number);
    for (; number.size() >= 5; number.erase(0, 1)) {
      for (int digit = 0; digit <= 8; ++digit)
        if (FindContactSearchData(digit, RemovePauseChars(number), check, match)) return true;
    }
    return false;
  }

 private:
  static void DropLeadingZero(std::string& number) {
    if (number.size() > 5 && number.substr(0, 2) != "00" && number[0] == '0') number.erase(0, 1);
  }

  static bool Matches(const std::string& key, const std::string& number, bool check) {
    return check ? RemovePauseChars(key) == RemovePauseChars(number)
                 : UpperPauseChars(key) == UpperPauseChars(number);
  }

  void RateMatch(int digit, const std::string& number, ContactMatch& match) {
    std::set<std::string> others;
    for (const auto& [key, records] : Table(digit)) {
      if (!Matches(key, number, true)) continue;
      for (const SearchRecord& record : records) {
        if (!m_gone.contains(record.entryId)) others.insert(record.entryId);
      }
    }
    others.erase(match.entryId);
    match.matchedDigits = RemovePauseChars(number).size();
    match.moreContacts = others.size();
  }

  void LogRecord(const std::string& what, int digit, const std::string& number,
                 const SearchRecord& record) {
    if (!m_log.IsEnabled()) return;
    m_log.Write(what + " digit = " + std::to_string(digit) + " number = " + number + " entryID = " +
                record.entryId + " telNumberType = " + std::to_string(record.telNumberType) + "\n");
  }

  IContactDirectory& m_directory;
  CDiagnosticLog& m_log;
  std::array<SearchTable, 9> m_tables;
  std::map<std::string, std::vector<std::pair<int, std::string>>> m_entryIdIndex;
  std::set<std::string> m_gone;
};

}  // namespace quor

#endif
