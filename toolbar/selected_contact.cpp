#include "toolbar/selected_contact.h"

#include "outlook/com_boundary.h"

namespace quor {

DialCandidates ReadSelectedContact(const CExplorer& explorer, CDiagnosticLog& log) noexcept {
  DialCandidates candidates;
  GuardCall(log, "the selected contact", [&] {
    if (!explorer) return;
    const CSelection selection = explorer.Selection();
    if (!selection || selection.Count() < 1) return;
    const CContactItem contact = QueryObject<CContactItem>(selection.Item(1));
    if (!contact) return;
    candidates.fileAs = contact.FileAs();
    candidates.numbers = NumbersOf(contact, log);
  });
  return candidates;
}

}  // namespace quor
