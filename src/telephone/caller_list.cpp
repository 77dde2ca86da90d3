#include "telephone/caller_list.h"

#include <algorithm>

namespace quor {

namespace {

bool IsHighSurrogate(wchar_t unit) noexcept {
  return (unit & 0xFC00) == 0xD800;
}

}  // namespace

std::wstring_view CallerCaption(std::wstring_view label) noexcept {
  if (label.size() <= kCallerCaptionLimit) return label;
  const bool halved = IsHighSurrogate(label[kCallerCaptionLimit - 1]);
  return label.substr(0, kCallerCaptionLimit - (halved ? 1 : 0));
}

void CCallerList::Add(const std::wstring& name, const std::wstring& number) {
  std::vector<CallEntry>& list = m_with.configuration.callerLists;
  if (list.size() >= kCallerListLimit) list.resize(kCallerListLimit - 1);
  list.insert(list.begin(), {name + L" " + number, name, number});
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
