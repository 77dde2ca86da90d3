#ifndef QUOR_TOOLBAR_RIBBON_CONTROL_ID_H
#define QUOR_TOOLBAR_RIBBON_CONTROL_ID_H

#include <cstddef>
#include <string_view>

#include "toolbar/toolbar_actions.h"

namespace quor {

// The function of a ribbon control.
enum class RibbonFunction {
  None,  // not a control of ours
  DialBox,
  Line1,
  Line2,
  CellMenu,
  Cell,
  CallerMenu,
  Caller,
  SpeedDialMenu,
  SpeedDialEntry,
  SpeedDialItem,
  Options,
  ContactGroup,
  ContactMenu,
  ContactNumber,
  ContactLine1,
  ContactLine2,
};

struct RibbonControlId {
  RibbonFunction function = RibbonFunction::None;
  size_t index = 0;  // of an item, from 0; for a contact's number, telNumberType 1 to 12
  SpeedDialAction action = SpeedDialAction::Call;  // of a speed-dial item

  bool operator==(const RibbonControlId&) const = default;
};

// Parses a control's id: a folder view and a function ("JournalsCustomButtonOption"), a menu item
// ("MailSpeedDialC7"), or a control of contact windows ("MenuHome2"). The calendar's table view has
// short ids in the document; the long form is accepted, too.
RibbonControlId RibbonControlIdFrom(std::wstring_view id) noexcept;

}  // namespace quor

#endif
