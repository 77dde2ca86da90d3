#ifndef QUOR_WORKBENCH_OFFICE_PUBLISHED_MEMBERS_H
#define QUOR_WORKBENCH_OFFICE_PUBLISHED_MEMBERS_H

#include <span>

#include "workbench/office/value.h"

// What the type libraries of Outlook and Office publish, from object_model.tsv. The stand-in's own
// tables are compared with it, and it says which arguments a call may have.

namespace quor::workbench {

struct PublishedArgument {
  const wchar_t* name;
  VARTYPE type;  // VT_BYREF where the member writes through it
};

struct PublishedMember {
  const wchar_t* interfaceName;
  IID iid;
  const wchar_t* name;
  DISPID id;
  WORD kinds;                                    // DISPATCH_METHOD, _PROPERTYGET, _PROPERTYPUT
  std::span<const PublishedArgument> arguments;  // without the value of a property write
  VARTYPE result;                                // of a property: its type; VT_EMPTY for none
};

std::span<const PublishedMember> PublishedMembers() noexcept;

bool IsPublished(REFIID iid) noexcept;
// Null when the interface has no such member, or is none of those published here.
const PublishedMember* FindPublished(REFIID iid, DISPID id) noexcept;

}  // namespace quor::workbench

#endif
