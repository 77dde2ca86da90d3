#ifndef QUOR_WORKBENCH_VCARD_VCARD_H
#define QUOR_WORKBENCH_VCARD_VCARD_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

// Address books as vCard text (RFC 6350), UTF-8, to the extent that scenarios and make-address-book
// use it.
//
// Properties read: FN, N, ORG, NOTE, TEL, KIND (a group becomes a distribution list), and two of
// our own:
//   X-FILE-AS   the contact's File As; default: "Last, First", or the one of the two that exists,
//               or the company, or FN
//   X-FOLDER    the card's folder: "Customers/North" below the contacts folder, or from the top
//               with a leading slash: "/Archive Folders/Contacts", "/Deleted Items"
// Other properties are ignored.
//
// The TYPE of a TEL, a list in any case, selects the number's field:
//   work, home, cell         Business, Home, Mobile; a second work or home Business2, Home2
//   fax                      with work BusinessFax, with home HomeFax, else OtherFax
//   pager, car, isdn         Pager, Car, ISDN
//   x-assistant, x-callback, x-company, x-other, x-primary, x-radio, x-telex, x-tty   the field
//                            of that name; x-company is CompanyMain
//   none of these            Other, then Primary
// A number whose fields are all used goes to Other; if that is used, too, this is an error.

struct CardNumber {
  std::string property;  // "BusinessTelephoneNumber", as the object model names the field
  std::string number;    // as written
};

struct Card {
  bool group = false;  // a distribution list
  std::string fullName;
  std::string firstName;
  std::string lastName;
  std::string company;
  std::string fileAs;  // not empty if there is any name
  std::string note;
  std::string folder;
  std::vector<CardNumber> numbers;  // at most one of each property
};

// An error in a text, and its line (from 1).
class CCardError : public std::runtime_error {
 public:
  CCardError(int line, const std::string& text)
      : std::runtime_error("vCard line " + std::to_string(line) + ": " + text) {}
};

// Throws CCardError.
std::vector<Card> ReadCards(std::string_view text);

}  // namespace quor::workbench

#endif
