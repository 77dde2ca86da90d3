#include "workbench/office/published_members.h"

#include <algorithm>

namespace quor::workbench {

bool IsPublished(REFIID iid) noexcept {
  return std::ranges::any_of(PublishedMembers(),
                             [&iid](const PublishedMember& one) { return one.iid == iid; });
}

const PublishedMember* FindPublished(REFIID iid, DISPID id) noexcept {
  const auto members = PublishedMembers();
  const auto found = std::ranges::find_if(
      members, [&](const PublishedMember& one) { return one.id == id && one.iid == iid; });
  return found == members.end() ? nullptr : &*found;
}

}  // namespace quor::workbench
