#ifndef QUOR_TOOLBAR_CONTACT_NUMBER_H
#define QUOR_TOOLBAR_CONTACT_NUMBER_H

#include <string>
#include <vector>

namespace quor {

// A contact's number as the user typed it. CControlFaces::ContactNumber gives its label.
struct ContactNumber {
  int telNumberType = 0;  // 1 to 12; 0: no number
  std::wstring number;

  bool operator==(const ContactNumber&) const = default;
};

// The contact selected in Outlook's main window, offered for dialling.
struct SelectedContact {
  std::wstring fileAs;
  std::vector<ContactNumber> numbers;  // existing numbers only, in the order of their types
};

}  // namespace quor

#endif
