#ifndef QUOR_TELEPHONE_CALLER_LIST_H
#define QUOR_TELEPHONE_CALLER_LIST_H

#include <string>

#include "telephone/collaborators.h"

namespace quor {

// The last ten callers (Configuration::callerLists), newest first.
class CCallerList {
 public:
  explicit CCallerList(const TelephoneCollaborators& collaborators) noexcept
      : m_collaborators(collaborators) {}

  // Adds a call at the head, saves the configuration file and redraws the menu. A second call from
  // the same caller is a second entry.
  void Add(const std::wstring& name, const std::wstring& number);

  // Redraws the caller-list menu. Start-up calls this once.
  void PutCallerList();

 private:
  const TelephoneCollaborators& m_collaborators;
};

}  // namespace quor

#endif
