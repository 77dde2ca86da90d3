#ifndef QUOR_CONTACTS_PHONE_NUMBER_INDEX_H
#define QUOR_CONTACTS_PHONE_NUMBER_INDEX_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "contacts/contact_directory.h"
#include "contacts/contact_item.h"
#include "contacts/entry_ids.h"
#include "contacts/number_postings.h"
#include "module/diagnostic_log.h"

namespace quor {

// Who owns a number. Reuse one object for several look-ups: its strings keep their memory.
struct ContactMatch {
  std::string entryId;
  std::string name;  // File As; only a checked look-up fills it
  int telNumberType = 0;
};

// The telephone numbers of the tracked contacts, found by their last 5 to 12 characters (numbers
// shorter than that: whole). Nine tables, called by their `digit`: table 0 holds the short numbers,
// table 1 to 8 the last digit + 4 characters of every number that has as many. Numbers consist of
// dial characters; other texts are not indexed and match nothing. All texts are in the ANSI code
// page.
//
// Results are those of a walk through each table in byte order of its keys that takes the first key
// that matches and its records in the order in which they were added. Stale records stay, except
// that a checked look-up removes those whose contact does not open.
//
// A checked look-up and the two operations on open contacts call out to Outlook, which may pump
// messages and re-enter: the index may be changed or searched meanwhile, and the text of the number
// may go. They carry on with the records as they then are; a record that did not open is removed if
// it is still there.
class CPhoneNumberIndex {
 public:
  CPhoneNumberIndex(IContactDirectory& directory, CDiagnosticLog& log) noexcept
      : m_directory(directory), m_log(log) {}
  CPhoneNumberIndex(const CPhoneNumberIndex&) = delete;
  CPhoneNumberIndex& operator=(const CPhoneNumberIndex&) = delete;

  // Enters an added or changed contact; a contact that was never saved is saved first.
  void TelNoCheckAndUpdate(IContactItem& contact);
  void OnContactItemDelete(IContactItem& contact);

  // Enters a filtered number under all its tails. The File As name is accepted and not kept: it is
  // read when it is asked for. Types other than 1 to 12 are not indexed.
  void AddContactSearchData(std::string_view number, std::string_view entryId, int telNumberType,
                            std::string_view fileAs);
  // Enters one record. A key that is not of its table's length is not indexed.
  void InsertContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType, std::string_view fileAs);

  // Removes the contact's records of one type, but only under the keys that were added since the
  // last call for this contact, whatever type that call was for. Records of earlier numbers stay
  // until a checked look-up removes them.
  void DeleteContactSearchDataByEntryID(std::string_view entryId, int telNumberType);
  // Removes the first record that matches; identical ones behind it stay.
  void DeleteContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType);

  // Looks the number up in one table. Unchecked, the case of pause characters does not matter, and
  // the first record wins unopened. Checked, pause characters are left out of the comparison, and
  // the first record whose contact opens wins. For a stored 12345P67:
  //
  //   table 4, 12345p67   unchecked and checked
  //   table 4, 1234567    checked only
  //   table 3, 1234567    neither: that table's key is 2345P67
  //
  // The match is untouched if no key matches; if none of the key's contacts opens, it holds the
  // last one tried.
  bool FindContactSearchData(int digit, std::string_view number, bool check, ContactMatch& match);

  // Looks the number up in the table of its length; of a long number the last 12 characters. One
  // leading zero, the trunk prefix, is left out. For a stored +49 (171) 555-0123:
  //
  //   01715550123        matches by its last 10 characters
  //   00491715550123     matches by its last 12
  //   99991715550123     does not match; SearchPhoneNumber does, by the last 10
  bool FindPhoneNumber(std::string_view number, bool check, ContactMatch& match);

  // Looks the number's tails up, longest first, in every table, with pause characters left out. At
  // least five characters must match:
  //
  //   0049171555012399   matches a stored 171555012399 by its last 12 characters
  //   0305550123         matches a stored 491715550123 by its last 7, unless another number has
  //   more 1234               is never found, not even if it is stored
  bool SearchPhoneNumber(std::string_view number, bool check, ContactMatch& match);

 private:
  void EnterNumber(uint32_t owner, std::string_view number, int telNumberType);
  void EnterKeys(uint32_t owner, const CNumberKeys& keys, int telNumberType);
  void DeleteKeysOf(uint32_t owner, int telNumberType);

  size_t ReachableLength(std::string_view folded) const;
  bool FindInEveryTable(std::string_view number, bool check, ContactMatch& match);
  bool FindInTable(int digit, std::string_view number, const std::optional<DialTail>& folded,
                   bool check, ContactMatch& match);
  bool TakeOnlyRecord(int digit, const CNumberPostings::KeyRecords& only, ContactMatch& match);
  bool TakeFirstThatOpens(int digit, std::string_view number,
                          const CNumberPostings::KeyRecords& several, ContactMatch& match);
  void ReadRecord(CRecord record, ContactMatch& match) const;
  void LogMissInEveryTable();
  void LogRecord(const char* what, int digit, std::string_view number, std::string_view entryId,
                 int telNumberType);

  IContactDirectory& m_directory;
  CDiagnosticLog& m_log;
  CNumberPostings m_postings;
  CEntryIds m_entryIds;
};

}  // namespace quor

#endif
