#ifndef QUOR_CONTACTS_PHONE_NUMBER_INDEX_H
#define QUOR_CONTACTS_PHONE_NUMBER_INDEX_H

#include <string>
#include <string_view>

#include "contacts/contact_directory.h"
#include "contacts/contact_item.h"
#include "contacts/entry_id_index.h"
#include "contacts/search_tables.h"
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
// table 1 to 8 the last digit + 4 characters of every number that has as many. All texts are bytes
// in the ANSI code page.
//
// Answers are those of a walk through each table in key order, taking the first key that matches
// and its records in the order in which they were added. Nothing is done against records that have
// become stale, except that a checked look-up drops those whose contact does not open.
//
// A checked look-up and the two operations on open contacts call out to Outlook, and the index may
// be changed, or searched, in the middle of that, and the text of the number go. They carry on with
// the records as they then are; a record that did not open is dropped if it is still there.
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
  void InsertContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType, std::string_view fileAs);

  // Removes the contact's records of one type, under those keys only that were added since the
  // last call for this contact, whatever type that call was for. Records of earlier numbers stay;
  // the checked look-ups rely on this and deal with them.
  void DeleteContactSearchDataByEntryID(std::string_view entryId, int telNumberType);
  // Removes the first record that matches; identical ones behind it stay.
  void DeleteContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType);

  // Looks the number up in one table. Unchecked, the case of pause characters does not matter, and
  // the first record wins unopened. Checked, pause characters are left out of the comparison, and
  // the first record whose contact opens wins.
  //
  // The match is untouched if no key matches; if none of the key's contacts opens, it holds the
  // last one tried.
  bool FindContactSearchData(int digit, std::string_view number, bool check, ContactMatch& match);

  // Looks the number up in the table of its length; of a long number the last 12 characters.
  bool FindPhoneNumber(std::string_view number, bool check, ContactMatch& match);
  // Looks the number's tails up, longest first, in every table, with pause characters left out.
  bool SearchPhoneNumber(std::string_view number, bool check, ContactMatch& match);

 private:
  void EnterNumber(EntryId id, std::string_view number, int telNumberType);
  void EnterKey(EntryId id, int digit, const std::string& key, int telNumberType);
  void DeleteKeysOf(EntryId id, int telNumberType);

  bool SearchTails(std::string_view number, bool check, ContactMatch& match);
  bool SearchEveryTail(std::string_view wanted, bool check, ContactMatch& match);
  bool TakeFirstRecord(const TableKey& key, const RecordList& records, std::string_view number,
                       bool check, ContactMatch& match);
  bool TakeOnlyRecord(const TableKey& key, Record record, ContactMatch& match);
  bool TakeFirstThatOpens(const TableKey& key, std::string_view number, ContactMatch& match);
  void ReadRecord(Record record, ContactMatch& match) const;
  void LogRecord(const char* what, int digit, std::string_view number, std::string_view entryId,
                 int telNumberType);

  IContactDirectory& m_directory;
  CDiagnosticLog& m_log;
  CSearchTables m_tables;
  CEntryIdIndex m_entryIds;
};

}  // namespace quor

#endif
