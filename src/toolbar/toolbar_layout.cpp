#include "toolbar/toolbar_layout.h"

#include <algorithm>

#include "resources/resource_ids.h"
#include "text/format.h"

namespace quor {

const std::array<ControlLayout, kControlCount> kToolbarLayout = {{
    {kDialBoxControl, ControlKind::ComboBox, L"Telephone Dial Tag", 0, 0},
    {kLine1Control, ControlKind::Button, L"Telephone Line1 Tag", IDP_LINE1, IDB_LINE1_MASK},
    {kLine2Control, ControlKind::Button, L"Telephone Line2 Tag", IDP_LINE2, IDB_LINE2_MASK},
    // Deliberately not the string table's "Telephone Cell Tag".
    {kCallFromCellControl, ControlKind::Popup, L"Call from Cell Tag", 0, 0},
    {kCallerListControl, ControlKind::Popup, L"Caller List Tag", 0, 0},
    {kSpeedDialControl, ControlKind::Popup, L"Speed dial Tag", 0, 0},
    {kOptionsControl, ControlKind::Button, L"Option Tag", IDP_OPTIONS, IDB_OPTIONS_MASK},
}};

const ControlLayout& LayoutOf(int control) noexcept {
  return *std::ranges::find(kToolbarLayout, control, &ControlLayout::control);
}

std::wstring ItemTag(const ControlLayout& menu, size_t item) {
  return std::wstring(menu.tag) + L' ' + DecimalText(static_cast<long long>(item) + 1);
}

std::wstring SpeedDialItemTag(size_t entry, SpeedDialAction action) {
  constexpr const wchar_t* kActions[] = {L" Call", L" Add", L" Edit", L" Erase"};
  return ItemTag(LayoutOf(kSpeedDialControl), entry) + kActions[static_cast<size_t>(action)];
}

}  // namespace quor
