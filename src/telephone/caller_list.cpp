#include "telephone/caller_list.h"

#include <algorithm>

#include "settings/entry_text.h"

namespace quor {

std::wstring_view CallerCaption(std::wstring_view label) noexcept {
  return CutText(label, kCallerCaptionLimit);
}

void CCallerList::Add(const std::wstring& name, const std::wstring& number) {
  std::vector<CallEntry>& list = m_with.configuration.callerLists;
  if (list.size() >= kCallerListLimit) list.resize(kCallerListLimit - 1);
  list.insert(list.begin(), StorableEntry({name + L" " + number, name, number}));
  m_with.settings.Save();
  PutCallerList();
}

void CCallerList::PutCallerList() {
  m_with.log.Write("CAddin::PutCallerList\n");
  const std::vector<CallEntry>& list = m_with.configuration.callerLists;
  CallerListItems items;
  const size_t count = std::min(list.size(), items.size());
  for (size_t i = 0; i < count; ++i) {
    items[i] = {std::wstring(CallerCaption(list[i].name)), true};
  }
  m_with.controls.ShowCallerList(items);
}

}  // namespace quor
