#ifndef QUOR_TOOLBAR_BAR_POSITION_H
#define QUOR_TOOLBAR_BAR_POSITION_H

#include "resources/placement.h"
#include "settings/configuration.h"

namespace quor {

// Positions of a command bar, in Office's numbering.
inline constexpr int32_t kBarDockedLeft = 0;
inline constexpr int32_t kBarDockedTop = 1;
inline constexpr int32_t kBarIsFloating = 4;

// Whether a record holds a bar's position. A session without the bar writes zeros.
bool TellsPosition(const ToolBarRecord& record) noexcept;

// The record's position; the top of the window if Office does not define the number.
int32_t BarPosition(const ToolBarRecord& record) noexcept;

// Position of a floating bar: the recorded one, moved onto the screen if its monitor is gone.
ScreenPoint FloatingCorner(const ToolBarRecord& record, const ScreenArea& workArea) noexcept;

}  // namespace quor

#endif
