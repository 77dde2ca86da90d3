#ifndef QUOR_WORKBENCH_VCARD_VCARD_H
#define QUOR_WORKBENCH_VCARD_VCARD_H

#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

// Address books as vCard text, versions 3.0 and 4.0 (RFC 2426, RFC 6350), UTF-8.
//
// Properties read: FN, N, ORG, NOTE, UID, TEL, KIND or X-ADDRESSBOOKSERVER-KIND (a group becomes a
// distribution list), MEMBER or X-ADDRESSBOOKSERVER-MEMBER, and two of our own:
//   X-FILE-AS   the contact's File As; default: "Last, First", or the one of the two that exists,
//               or the company, or FN
//   X-FOLDER    the card's folder: "Customers/North" below the contacts folder, or from the top
//               with a leading slash: "/Archive Folders/Contacts", "/Deleted Items"
// Other properties are ignored.
//
// The TYPE values of a TEL select the field. They may be written as TYPE=a,b, as several TYPEs or
// bare, in any case:
//   work, home, cell         Business, Home, Mobile; a second work or home Business2, Home2
//   fax                      with work BusinessFax, with home HomeFax, else OtherFax
//   pager, car, isdn         Pager, Car, ISDN
//   textphone or x-tty       TTYTDD
//   x-assistant, x-callback, x-company, x-other, x-primary, x-radio, x-telex   the field of that
//                            name; x-company is CompanyMain
//   pref or PREF=1, alone    Primary
//   none of these            Other, then Primary
// A number whose fields are all used goes to Other; if that is used, too, the number is dropped
// with an error. A value may be a "tel:" URI; its ";ext=12" becomes " x12".

// A contact's nineteen number fields, in the stand-in's property order.
enum class NumberKind {
  Assistant,
  Business,
  Business2,
  Callback,
  Car,
  CompanyMain,
  Home,
  Home2,
  Isdn,
  Mobile,
  Other,
  Primary,
  BusinessFax,
  HomeFax,
  OtherFax,
  Pager,
  Radio,
  Telex,
  TtyTdd,
};

struct CardNumber {
  NumberKind kind = NumberKind::Other;
  std::string number;  // as written
};

struct Card {
  int line = 0;        // of its BEGIN, from 1
  bool group = false;  // a distribution list
  std::string fullName;
  std::string firstName;  // with middle names
  std::string lastName;
  std::string company;
  std::string fileAs;  // not empty if there is any name
  std::string note;
  std::string uid;
  std::string folder;
  std::vector<CardNumber> numbers;   // at most one of each kind
  std::vector<std::string> members;  // of a group, as written
};

struct CardError {
  int line = 0;
  std::string text;
};

struct CardFile {
  std::vector<Card> cards;
  std::vector<CardError> errors;  // the first hundred
};

// Reads as much as possible: skips a card with an error in its structure, version or encoding.
CardFile ReadCards(std::string_view text);

}  // namespace quor::workbench

#endif
