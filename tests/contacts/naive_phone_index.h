#ifndef QUOR_TESTS_CONTACTS_NAIVE_PHONE_INDEX_H
#define QUOR_TESTS_CONTACTS_NAIVE_PHONE_INDEX_H

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "contacts/contact_directory.h"
#include "contacts/contact_fields.h"
#include "contacts/phone_number_index.h"
#include "module/diagnostic_log.h"

namespace quor {

// The index as its documentation describes it: nine ordered maps, walked from the first key, and a
// tenth for the keys of each contact. Slow on purpose; the real index is compared with it.
class CNaivePhoneIndex {
 public:
  CNaivePhoneIndex(IContactDirectory& directory, CDiagnosticLog& log)
      : m_directory(directory), m_log(log) {}

  void TelNoCheckAndUpdate(IContactFields& contact);
  void OnContactItemDelete(IContactFields& contact);
  void AddContactSearchData(std::string_view number, std::string_view entryId, int telNumberType,
                            std::string_view fileAs);
  void InsertContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType, std::string_view fileAs);
  void DeleteContactSearchDataByEntryID(std::string_view entryId, int telNumberType);
  void DeleteContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType);
  bool FindContactSearchData(int digit, const std::string& number, bool check, ContactMatch& match);
  bool FindPhoneNumber(std::string number, bool check, ContactMatch& match);
  bool SearchPhoneNumber(std::string number, bool check, ContactMatch& match);

  struct SearchRecord {
    std::string entryId;
    int telNumberType;
  };
  using SearchTable = std::map<std::string, std::vector<SearchRecord>>;
  const std::array<SearchTable, 9>& Tables() const { return m_tables; }

 private:
  void RateMatch(int digit, const std::string& number, ContactMatch& match) const;
  bool TakeSeveral(int digit, SearchTable::iterator key, const std::string& number,
                   ContactMatch& match);
  void LogRecord(const std::string& what, int digit, std::string_view number,
                 std::string_view entryId, int telNumberType);

  IContactDirectory& m_directory;
  CDiagnosticLog& m_log;
  std::array<SearchTable, 9> m_tables;
  std::map<std::string, std::vector<std::pair<int, std::string>>> m_entryIdIndex;
  std::set<std::string> m_gone;
};

}  // namespace quor

#endif
