#ifndef QUOR_WORKBENCH_VCARD_VCARD_H
#define QUOR_WORKBENCH_VCARD_VCARD_H

#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

// Address books as vCard text, versions 3.0 and 4.0 (RFC 2426, RFC 6350), UTF-8.
//
// Read from a card: FN, N, ORG, NOTE, UID, TEL, KIND or X-ADDRESSBOOKSERVER-KIND (a group becomes a
// distribution list), MEMBER or X-ADDRESSBOOKSERVER-MEMBER, and two of our own:
//   X-FILE-AS   what Outlook shows for the contact; without it "Last, First", or what there is of
//               the two, or the company, or FN
//   X-FOLDER    where the card lies: "Customers/North" below the contacts folder, or from the top
//               with a leading slash: "/Archive Folders/Contacts", "/Deleted Items"
// Everything else is passed over.
//
// A TEL goes by its TYPE values, given as TYPE=a,b, as several TYPEs or bare, in any case:
//   work, home, cell         Business, Home, Mobile; a second work or home Business2, Home2
//   fax                      with work BusinessFax, with home HomeFax, else OtherFax
//   pager, car, isdn         Pager, Car, ISDN
//   textphone or x-tty       TTYTDD
//   x-assistant, x-callback, x-company, x-other, x-primary, x-radio, x-telex   the one named;
//                            x-company is CompanyMain
//   pref or PREF=1, alone    Primary
//   none of these            Other, then Primary
// A number whose fields are taken goes to Other; when that is taken too it is an error and the card
// loses it. A value may be a "tel:" URI; its ";ext=12" becomes " x12".

// A contact's nineteen number fields, in the order in which the stand-in lists its properties.
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
  std::string fileAs;  // never empty where there is any name
  std::string note;
  std::string uid;
  std::string folder;
  std::vector<CardNumber> numbers;   // at most one of a kind
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

// Reads what can be read: a card with an error in its structure, its version or its encoding is
// left out, the next one is read.
CardFile ReadCards(std::string_view text);

}  // namespace quor::workbench

#endif
