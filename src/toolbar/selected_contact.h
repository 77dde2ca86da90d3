#ifndef QUOR_TOOLBAR_SELECTED_CONTACT_H
#define QUOR_TOOLBAR_SELECTED_CONTACT_H

#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "toolbar/contact_numbers.h"

namespace quor {

// The contact selected in Outlook's main window: whom the user may want to dial.
struct SelectedContact {
  std::wstring fileAs;
  std::vector<ContactNumber> numbers;  // only those the contact has, in the order of their types
};

// Read when it is needed. The first selected item counts; no contact, or one that Outlook refuses
// (logged), gives an empty result. The explorer must stay alive: any call may close it.
SelectedContact ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept;

}  // namespace quor

#endif
