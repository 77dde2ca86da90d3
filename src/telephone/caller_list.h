#ifndef QUOR_TELEPHONE_CALLER_LIST_H
#define QUOR_TELEPHONE_CALLER_LIST_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "telephone/collaborators.h"

namespace quor {

inline constexpr size_t kCallerCaptionLimit = 50;

// The first 50 UTF-16 units of a label, or 49 where the cut would split a surrogate pair.
std::wstring_view CallerCaption(std::wstring_view label) noexcept;

// An item of the caller-list menu.
struct CallerListItem {
  std::wstring caption;  // empty when hidden; "&" is not escaped
  bool visible = false;
};

// The menu item for an entry of the list; entry 0 is the newest.
CallerListItem CallerItem(const std::vector<CallEntry>& callers, size_t entry);

// The last ten callers (Configuration::callerLists), newest first.
class CCallerList {
 public:
  explicit CCallerList(const TelephoneCollaborators& with) noexcept : m_with(with) {}

  // Adds a call at the head, saves the configuration file and redraws the menu. A second call from
  // the same caller is a second entry.
  void Add(const std::wstring& name, const std::wstring& number);

  // Redraws the caller-list menu. Start-up calls this once.
  void PutCallerList();

 private:
  const TelephoneCollaborators& m_with;
};

}  // namespace quor

#endif
