#ifndef QUOR_CONTACTS_CONTACT_ITEM_H
#define QUOR_CONTACTS_CONTACT_ITEM_H

#include <string>

namespace quor {

// Types of a contact's indexed numbers. The numbering is fixed: the log prints it, and lists of
// numbers are in this order.
//
//   1 Assistant   4 Callback      7 Home    10 Mobile
//   2 Business    5 Car           8 Home2   11 Other
//   3 Business2   6 Company main  9 ISDN    12 Primary
constexpr int kFirstTelNumberType = 1;
constexpr int kLastTelNumberType = 12;

// An open contact. Texts are in the ANSI code page. Each operation returns whether it succeeded,
// leaves its result unchanged if not, and may pump messages. None throws.
class IContactItem {
 public:
  virtual bool ReadEntryId(std::string& entryId) = 0;  // empty for a contact never saved
  virtual bool Save() = 0;
  virtual bool ReadFileAs(std::string& fileAs) = 0;
  // Reads the number as the user typed it. Fails for a type that is not in the table above.
  virtual bool ReadTelNumber(int telNumberType, std::string& number) = 0;

 protected:
  ~IContactItem() = default;
};

// Gives the dial characters among the first 32 characters of the number: "+49 (171) 555-0123" gives
// "491715550123". Empty if the number cannot be read.
void GetContactTelNumber(IContactItem& contact, int telNumberType, std::string& number);

}  // namespace quor

#endif
