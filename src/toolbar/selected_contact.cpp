#include "toolbar/selected_contact.h"

#include "com/com_boundary.h"
#include "toolbar/contact_numbers.h"

namespace quor {

SelectedContact ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept {
  SelectedContact selected;
  GuardCall(log, "the selected contact", [&] {
    if (!explorer) return;
    const CSelection selection = explorer.Selection();
    if (!selection || selection.Count() < 1) return;
    const auto contact = QueryObject<CContactItem>(selection.Item(1));
    if (!contact) return;
    selected.fileAs = contact.FileAs();
    selected.numbers = NumbersOf(contact, log);
  });
  return selected;
}

}  // namespace quor
