#include "telephone/caller_list.h"

#include "settings/entry_text.h"

namespace quor {

void CCallerList::Add(const std::wstring& name, const std::wstring& number) {
  std::vector<CallEntry>& list = m_collaborators.configuration.callerLists;
  if (list.size() >= kCallerListLimit) list.resize(kCallerListLimit - 1);
  list.insert(list.begin(), StorableEntry({name + L" " + number, name, number}));
  m_collaborators.settings.Save();
  PutCallerList();
}

void CCallerList::PutCallerList() {
  m_collaborators.log.Write("CAddin::PutCallerList\n");
  m_collaborators.controls.PutCallerList();
}

}  // namespace quor
