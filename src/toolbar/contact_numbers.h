#ifndef QUOR_TOOLBAR_CONTACT_NUMBERS_H
#define QUOR_TOOLBAR_CONTACT_NUMBERS_H

#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// One of a contact's numbers, as the user wrote it. CControlFaces::ContactNumber labels it.
struct ContactNumber {
  int telNumberType = 0;  // 1 to 12
  std::wstring number;
};

// The contact open in an inspector; empty for any other item, and when there is no inspector.
// Throws _com_error when Outlook does not tell.
CContactItem ContactOf(const CInspector& inspector);

// The numbers that the contact has, in the order of their types. One that Outlook does not tell is
// logged and counts as none.
std::vector<ContactNumber> NumbersOf(const CContactItem& contact, CDiagnosticLog& log);

}  // namespace quor

#endif
