#ifndef QUOR_TOOLBAR_CONTACT_NUMBERS_H
#define QUOR_TOOLBAR_CONTACT_NUMBERS_H

#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// One of a contact's numbers, as the user wrote it. CControlFaces::ContactNumber labels it.
struct ContactNumber {
  int telNumberType = 0;  // 1 to 12; 0: there is none
  std::wstring number;

  bool operator==(const ContactNumber&) const = default;
};

// The contact open in an inspector; empty for any other item, and when there is no inspector.
// Throws _com_error when Outlook refuses.
CContactItem ContactOf(const CInspector& inspector);

// Whether both stand for the same contact: Outlook may give several objects for one. Two that are
// not saved yet are the same only as the same object.
bool IsSameContact(const CContactItem& one, const CContactItem& other);

// The numbers that the contact has, in the order of their types. One that Outlook refuses is logged
// and counts as none.
std::vector<ContactNumber> NumbersOf(const CContactItem& contact, CDiagnosticLog& log);
// The first of them; reads no further.
ContactNumber FirstNumberOf(const CContactItem& contact, CDiagnosticLog& log);

}  // namespace quor

#endif
