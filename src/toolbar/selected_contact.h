#ifndef QUOR_TOOLBAR_SELECTED_CONTACT_H
#define QUOR_TOOLBAR_SELECTED_CONTACT_H

#include <string>
#include <vector>

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "toolbar/contact_numbers.h"

namespace quor {

// The contact selected in Outlook's main window, offered for dialling.
struct SelectedContact {
  std::wstring fileAs;
  std::vector<ContactNumber> numbers;  // existing numbers only, in the order of their types
};

// Reads the first selected item. Empty if it is not a contact or cannot be read (logged). The
// caller must hold the explorer, because any call may close it.
SelectedContact ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept;

}  // namespace quor

#endif
