#include "workbench/office/published_members.h"

#include <algorithm>
#include <stdexcept>

namespace quor::workbench {

const IID& PublishedInterface(std::wstring_view interfaceName) {
  const auto found =
      std::ranges::find(PublishedMembers(), interfaceName, &PublishedMember::interfaceName);
  if (found == PublishedMembers().end()) {
    throw std::logic_error(Utf8FromWide(interfaceName) + " is not published");
  }
  return found->iid;
}

const PublishedMember* FindPublished(std::wstring_view interfaceName, std::wstring_view name,
                                     WORD kind) noexcept {
  const auto members = PublishedMembers();
  const auto found = std::ranges::find_if(members, [&](const PublishedMember& one) {
    return one.interfaceName == interfaceName && (one.kinds & kind) != 0 &&
           SameText(one.name, name);
  });
  return found == members.end() ? nullptr : &*found;
}

}  // namespace quor::workbench
