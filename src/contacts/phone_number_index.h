#ifndef QUOR_CONTACTS_PHONE_NUMBER_INDEX_H
#define QUOR_CONTACTS_PHONE_NUMBER_INDEX_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "contacts/contact_directory.h"
#include "contacts/contact_fields.h"
#include "contacts/entry_ids.h"
#include "contacts/number_postings.h"
#include "module/diagnostic_log.h"

namespace quor {

// Owner of a number. Reuse one object for several look-ups: its strings keep their memory.
struct ContactMatch {
  std::string entryId;
  std::string name;  // File As; filled by checked look-ups only
  int telNumberType = 0;
  // How good the match is, without pause characters; set by checked look-ups only.
  size_t matchedDigits = 0;  // how many digits of the number, counted from the end
  size_t moreContacts = 0;   // others with a number that ends in these digits
};

// The telephone numbers of the tracked contacts, found by their last 5 to 12 characters; shorter
// numbers are found whole. There are nine tables, each named by its `digit`: table 0 holds the
// short numbers, tables 1 to 8 the last digit + 4 characters of every number that has so many.
// Numbers consist of dial characters; other texts are not indexed and match nothing. All texts are
// in the ANSI code page.
//
// A look-up gives the result of a walk through the table: the first matching key in byte order, and
// that key's records in the order of insertion. Outdated records stay until a checked look-up finds
// that their contact does not open.
//
// A checked look-up and the two operations on open contacts call into Outlook, which may pump
// messages and re-enter: the index may be changed or searched meanwhile, and the number's text may
// be freed. They continue with the records that exist then, and remove a record that did not open
// if it is still there.
class CPhoneNumberIndex {
 public:
  CPhoneNumberIndex(IContactDirectory& directory, CDiagnosticLog& log) noexcept
      : m_directory(directory), m_log(log) {}
  CPhoneNumberIndex(const CPhoneNumberIndex&) = delete;
  CPhoneNumberIndex& operator=(const CPhoneNumberIndex&) = delete;

  // Indexes an added or changed contact. A contact that was never saved is saved first.
  void TelNoCheckAndUpdate(IContactFields& contact);
  void OnContactItemDelete(IContactFields& contact);

  // Indexes a filtered number under all its tails. Types other than 1 to 12 are not indexed. fileAs
  // is ignored: the name is read from the contact when needed.
  void AddContactSearchData(std::string_view number, std::string_view entryId, int telNumberType,
                            std::string_view fileAs);
  // Adds one record. A key whose length does not fit the table is not indexed.
  void InsertContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType, std::string_view fileAs);

  // Removes the contact's records of one type, under the keys added since the last call for this
  // contact, whatever that call's type. Records of earlier numbers stay until a checked look-up
  // removes them.
  void DeleteContactSearchDataByEntryID(std::string_view entryId, int telNumberType);
  // Removes the first matching record; identical later ones stay.
  void DeleteContactSearchData(int digit, std::string_view key, std::string_view entryId,
                               int telNumberType);

  // Looks the number up in one table. Unchecked: upper and lower case pause characters are equal,
  // and the first record is the result; no contact is opened. Checked: pause characters are left
  // out of the comparison, and the first record whose contact opens is the result. For a stored
  // 12345P67:
  //
  //   table 4, 12345p67   found unchecked and checked
  //   table 4, 1234567    found checked only
  //   table 3, 1234567    not found: that table's key is 2345P67
  //
  // If no key matches, `match` is unchanged. If none of the key's contacts opens, it holds the last
  // one tried.
  bool FindContactSearchData(int digit, std::string_view number, bool check, ContactMatch& match);

  // Looks the number up in the table of its length; of a long number only the last 12 characters
  // count. One leading zero, the trunk prefix, is removed. For a stored +49 (171) 555-0123:
  //
  //   01715550123        found by its last 10 characters
  //   00491715550123     found by its last 12
  //   99991715550123     not found; SearchPhoneNumber finds it by its last 10
  bool FindPhoneNumber(std::string_view number, bool check, ContactMatch& match);

  // Looks up the number's tails, longest first, in every table, pause characters left out. At least
  // five characters must match:
  //
  //   0049171555012399   finds a stored 171555012399 by its last 12 characters
  //   0305550123         finds a stored 491715550123 by its last 7, unless another number matches
  //                      more
  //   1234               is never found, even if it is stored
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
  bool TakeFirstThatOpens(int digit, std::string_view number, CNumberPostings::KeyRecords several,
                          ContactMatch& match);
  void ReadRecord(CRecord record, ContactMatch& match) const;
  void RateMatch(const CNumberPostings::KeyRecords& found, CRecord record,
                 ContactMatch& match) const;
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
