#ifndef QUOR_BENCH_CONTACTS_HASH_MAP_INDEX_H
#define QUOR_BENCH_CONTACTS_HASH_MAP_INDEX_H

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "contacts/contact_directory.h"
#include "contacts/contact_fields.h"
#include "contacts/phone_number_index.h"
#include "module/diagnostic_log.h"
#include "text/dial_chars.h"

namespace quor {

// The rival: the same nine tables and the same steps, with plain strings and with vectors copied
// out and stored back, but a hash look-up finds a key instead of a walk. It finds a key with pause
// characters only in the stored form, so it does not pay for such numbers as the index does.
class CHashMapIndex {
 public:
  CHashMapIndex(IContactDirectory& directory, CDiagnosticLog& log)
      : m_directory(directory), m_log(log) {}

  void TelNoCheckAndUpdate(IContactFields& contact) {
    m_log.Write("CAddin::TelNoCheckAndUpdate\n");
    std::string entryId;
    if (!contact.ReadEntryId(entryId) || entryId.empty()) return;
    std::string fileAs;
    if (!contact.ReadFileAs(fileAs)) return;
    for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
      DeleteContactSearchDataByEntryID(entryId, type);
      std::string number;
      GetContactTelNumber(contact, type, number);
      if (!number.empty()) AddContactSearchData(number, entryId, type, fileAs);
    }
    m_log.Write("CContactItem::TelNoCheckAndUpdate OK\n");
  }

  void AddContactSearchData(const std::string& number, const std::string& entryId, int type,
                            const std::string& /*fileAs*/) {
    if (number.size() < 5) {
      Insert(0, number, entryId, type);
      return;
    }
    for (size_t n = 5; n <= std::min<size_t>(number.size(), 12); ++n) {
      Insert(n - 4, number.substr(number.size() - n), entryId, type);
    }
  }

  bool FindPhoneNumber(std::string number, bool check, ContactMatch& match) {
    m_log.Write("CAddin::FindPhoneNumber\n");
    DropLeadingZero(number);
    if (number.size() < 5) return Find(0, number, check, match);
    if (number.size() >= 12) return Find(8, number.substr(number.size() - 12), check, match);
    return Find(number.size() - 4, number, check, match);
  }

  bool SearchPhoneNumber(std::string number, bool check, ContactMatch& match) {
    m_log.Write("CAddin::SearchPhoneNumber\n");
    DropLeadingZero(number);
    for (; number.size() >= 5; number.erase(0, 1)) {
      const std::string candidate = RemovePauseChars(number);
      for (size_t digit = 0; digit <= 8; ++digit) {
        if (Find(digit, candidate, check, match)) return true;
      }
    }
    return false;
  }

 private:
  struct SearchRecord {
    std::string entryId;
    int type;
  };
  using Records = std::vector<SearchRecord>;
  using Table = std::unordered_map<std::string, Records>;
  using Keys = std::vector<std::pair<int, std::string>>;

  static void DropLeadingZero(std::string& number) {
    if (number.size() > 5 && number[0] == '0' && number[1] != '0') number.erase(0, 1);
  }

  void Insert(size_t digit, const std::string& key, const std::string& entryId, int type) {
    Table& table = m_tables[digit];
    Records records;
    const auto found = table.find(key);
    if (found != table.end()) records = found->second;
    records.push_back({entryId, type});
    table[key] = records;

    Keys keys;
    const auto entry = m_entryIdIndex.find(entryId);
    if (entry != m_entryIdIndex.end()) keys = entry->second;
    keys.emplace_back(static_cast<int>(digit), key);
    m_entryIdIndex[entryId] = keys;
  }

  void DeleteContactSearchDataByEntryID(const std::string& entryId, int type) {
    const auto entry = m_entryIdIndex.find(entryId);
    if (entry == m_entryIdIndex.end()) return;
    for (const auto& [digit, key] : entry->second) {
      Table& table = m_tables[static_cast<size_t>(digit)];
      const auto found = table.find(key);
      if (found == table.end()) continue;
      Records& records = found->second;
      const auto record = std::find_if(records.begin(), records.end(), [&](const auto& each) {
        return each.type == type && each.entryId == entryId;
      });
      if (record != records.end()) records.erase(record);
      if (records.empty()) table.erase(found);
    }
    m_entryIdIndex.erase(entry);
  }

  bool Find(size_t digit, const std::string& number, bool check, ContactMatch& match) {
    m_log.Write("CAddin::FindContactSearchData\n");
    Table& table = m_tables[digit];
    const auto key = table.find(UpperPauseChars(check ? RemovePauseChars(number) : number));
    if (key == table.end()) {
      m_log.Write("CAddin::FindContactSearchData NG\n");
      return false;
    }
    match.name.clear();
    Records& records = key->second;
    size_t stale = 0;
    for (; stale < records.size(); ++stale) {
      match.entryId = records[stale].entryId;
      match.telNumberType = records[stale].type;
      if (!check || m_directory.FindContactFileAs(match.entryId, match.name)) break;
    }
    const bool isFound = stale < records.size();
    records.erase(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(stale));
    if (!isFound) table.erase(key);
    m_log.Write("CAddin::FindContactSearchData OK\n");
    return isFound;
  }

  IContactDirectory& m_directory;
  CDiagnosticLog& m_log;
  std::array<Table, 9> m_tables;
  std::unordered_map<std::string, Keys> m_entryIdIndex;
};

}  // namespace quor

#endif
