#ifndef QUOR_TOOLBAR_SELECTED_CONTACT_H
#define QUOR_TOOLBAR_SELECTED_CONTACT_H

#include "module/diagnostic_log.h"
#include "outlook/object_model.h"
#include "toolbar/contact_number.h"

namespace quor {

// Reads the first selected item. Empty if it is not a contact or cannot be read (logged). The
// caller must hold the explorer, because any call may close it.
SelectedContact ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept;

}  // namespace quor

#endif
