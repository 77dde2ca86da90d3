#ifndef QUOR_TOOLBAR_SELECTED_CONTACT_H
#define QUOR_TOOLBAR_SELECTED_CONTACT_H

#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "toolbar/contact_numbers.h"

namespace quor {

// Whom the user may want to dial: the contact selected in Outlook's main window.
struct DialCandidates {
  std::wstring fileAs;
  std::vector<ContactNumber> numbers;  // only those the contact has, in the order of their types
};

// Read at the moment they are needed, and nothing before: walking through a list with the arrow
// keys costs no call, and a contact changed meanwhile is offered as it is now. The first selected
// item counts; no contact, or one that Outlook refuses (logged), leaves the candidates empty.
DialCandidates ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept;

}  // namespace quor

#endif
