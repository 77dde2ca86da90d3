#ifndef QUOR_WORKBENCH_OFFICE_PUBLISHED_MEMBERS_H
#define QUOR_WORKBENCH_OFFICE_PUBLISHED_MEMBERS_H

#include <span>
#include <string_view>

#include "workbench/office/value.h"

// What the type libraries of Outlook and Office publish, from object_model.tsv. The stand-in's own
// tables name the members that it implements; their ids and arguments stand here.

namespace quor::workbench {

struct PublishedArgument {
  const wchar_t* name;
  VARTYPE type;  // VT_BYREF where the member writes through it
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order of the data's columns
struct PublishedMember {
  std::wstring_view interfaceName;
  IID iid;
  const wchar_t* name;
  DISPID id;
  WORD kinds;                                    // DISPATCH_METHOD, _PROPERTYGET, _PROPERTYPUT
  std::span<const PublishedArgument> arguments;  // without the value of a property write
  VARTYPE result;                                // of a property: its type; VT_EMPTY for none
};

std::span<const PublishedMember> PublishedMembers() noexcept;

// Throws std::logic_error for an interface that is not published here.
const IID& PublishedInterface(std::wstring_view interfaceName);
// Null when the interface has no such member, or is none of those published here. `kind` is one of
// PublishedMember's kinds; the case of a name does not matter.
const PublishedMember* FindPublished(std::wstring_view interfaceName, std::wstring_view name,
                                     WORD kind) noexcept;

}  // namespace quor::workbench

#endif
