#include "toolbar/ribbon_control_id.h"

#include <algorithm>
#include <array>
#include <optional>

#include "device/records.h"
#include "settings/configuration.h"

namespace quor {
namespace {

// A view whose name starts with another view's name comes before that view.
constexpr std::wstring_view kViews[] = {
    L"Mail", L"CalendarTableView", L"Calendar", L"Contacts", L"Tasks", L"Notes", L"Journals"};

struct Function {
  std::wstring_view name;
  RibbonFunction function;
};

constexpr Function kFunctions[] = {
    {L"ComboDial", RibbonFunction::DialBox},
    {L"CustomButtonLine1", RibbonFunction::Line1},
    {L"CustomButtonLine2", RibbonFunction::Line2},
    {L"CustomMenuCallFromCell", RibbonFunction::CellMenu},
    {L"CallFromCell", RibbonFunction::CellMenu},
    {L"CustomMenuCallerList", RibbonFunction::CallerMenu},
    {L"CustomMenuSpeedDial", RibbonFunction::SpeedDialMenu},
    {L"SpeedDial", RibbonFunction::SpeedDialMenu},
    {L"CustomButtonOption", RibbonFunction::Options},
};

constexpr Function kContactFunctions[] = {
    {L"ContactGroup", RibbonFunction::ContactGroup},
    {L"CustomMenuDialNum", RibbonFunction::ContactMenu},
    {L"CustomButtonLine1C", RibbonFunction::ContactLine1},
    {L"CustomButtonLine2C", RibbonFunction::ContactLine2},
    {L"CustomMenuCallFromCellC", RibbonFunction::CellMenu},
};

struct Items {
  std::wstring_view name;  // followed by one digit
  size_t count;
  RibbonFunction function;
  SpeedDialAction action = SpeedDialAction::Call;
};

constexpr Items kItems[] = {
    {L"Cell", kCellCount, RibbonFunction::Cell},
    {L"CallerList", kCallerListLimit, RibbonFunction::Caller},
    {L"SpeedDialMenu", kSpeedDialCount, RibbonFunction::SpeedDialEntry},
    {L"SpeedDialC", kSpeedDialCount, RibbonFunction::SpeedDialItem, SpeedDialAction::Call},
    {L"SpeedDialA", kSpeedDialCount, RibbonFunction::SpeedDialItem, SpeedDialAction::Add},
    {L"SpeedDialU", kSpeedDialCount, RibbonFunction::SpeedDialItem, SpeedDialAction::Edit},
    {L"SpeedDialR", kSpeedDialCount, RibbonFunction::SpeedDialItem, SpeedDialAction::Erase},
};

// In the order of telNumberType 1 to 12.
constexpr std::wstring_view kNumberKinds[] = {L"Assistant", L"Business", L"Business2", L"Callback",
                                              L"Car",       L"Company",  L"Home",      L"Home2",
                                              L"ISDN",      L"Mobile",   L"Other",     L"Primary"};

RibbonControlId FromFunction(std::wstring_view name, const Function* begin,
                             const Function* end) noexcept {
  const Function* found = std::ranges::find(begin, end, name, &Function::name);
  return found == end ? RibbonControlId{} : RibbonControlId{found->function};
}

RibbonControlId FromItem(std::wstring_view name) noexcept {
  if (name.empty() || name.back() < L'0' || name.back() > L'9') return {};
  const auto index = static_cast<size_t>(name.back() - L'0');
  name.remove_suffix(1);
  const auto* found = std::ranges::find(kItems, name, &Items::name);
  if (found == std::end(kItems) || index >= found->count) return {};
  return {found->function, index, found->action};
}

RibbonControlId FromNumberKind(std::wstring_view id) noexcept {
  constexpr std::wstring_view kPrefix = L"Menu";
  if (!id.starts_with(kPrefix)) return {};
  const auto* found = std::ranges::find(kNumberKinds, id.substr(kPrefix.size()));
  if (found == std::end(kNumberKinds)) return {};
  return {RibbonFunction::ContactNumber, static_cast<size_t>(found - kNumberKinds) + 1};
}

RibbonControlId FromContactId(std::wstring_view id) noexcept {
  const RibbonControlId control =
      FromFunction(id, std::begin(kContactFunctions), std::end(kContactFunctions));
  return control.function == RibbonFunction::None ? FromNumberKind(id) : control;
}

}  // namespace

RibbonControlId RibbonControlIdFrom(std::wstring_view id) noexcept {
  const auto* view = std::ranges::find_if(
      kViews, [id](std::wstring_view candidate) { return id.starts_with(candidate); });
  if (view == std::end(kViews)) return FromContactId(id);
  const std::wstring_view name = id.substr(view->size());
  const RibbonControlId control = FromFunction(name, std::begin(kFunctions), std::end(kFunctions));
  return control.function == RibbonFunction::None ? FromItem(name) : control;
}

}  // namespace quor
