#ifndef QUOR_WORKBENCH_COMMANDBARS_MSO_H
#define QUOR_WORKBENCH_COMMANDBARS_MSO_H

#include "workbench/office/value.h"

// The published numbers of Office's command bars.

namespace quor::workbench::mso {

enum ControlType : long { kButton = 1, kComboBox = 4, kPopup = 10 };
enum BarPosition : long {
  kLeft = 0,
  kTop = 1,
  kRight = 2,
  kBottom = 3,
  kFloating = 4,
  kPopupPosition = 5,
  kMenuBarPosition = 6
};
enum BarType : long { kNormalBar = 0, kMenuBar = 1, kPopupBar = 2 };
enum ButtonStyle : long {
  kAutomatic = 0,
  kIcon = 1,
  kCaption = 2,
  kIconAndCaption = 3,
  kIconAndWrapCaption = 7,
  kIconAndCaptionBelow = 11,
  kWrapCaption = 14,
  kIconAndWrapCaptionBelow = 15
};
constexpr long kCustomControl = 1;  // Id of every control that is not Office's own

}  // namespace quor::workbench::mso

#endif
