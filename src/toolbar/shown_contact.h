#ifndef QUOR_TOOLBAR_SHOWN_CONTACT_H
#define QUOR_TOOLBAR_SHOWN_CONTACT_H

#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "toolbar/contact_number.h"

// The contacts that Outlook's windows show, and their numbers.

namespace quor {

// The contact open in an inspector; empty for any other item or without an inspector. Throws
// _com_error on failure.
CContactItem ContactOf(const CInspector& inspector);

// Whether both are the same contact: Outlook may return several objects for one contact. Two
// unsaved contacts are the same only if they are the same object.
bool IsSameContact(const CContactItem& one, const CContactItem& other);

// The contact's numbers in the order of their types. A number that cannot be read is logged and
// skipped.
std::vector<ContactNumber> NumbersOf(const CContactItem& contact, CDiagnosticLog& log);
// The first of these numbers; does not read the others.
ContactNumber FirstNumberOf(const CContactItem& contact, CDiagnosticLog& log);

// Reads the first item selected in an explorer. Empty if it is not a contact or cannot be read
// (logged). The caller must hold the explorer, because any call may close it.
SelectedContact ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept;

}  // namespace quor

#endif
