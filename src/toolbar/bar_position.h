#ifndef QUOR_TOOLBAR_BAR_POSITION_H
#define QUOR_TOOLBAR_BAR_POSITION_H

#include "resources/placement.h"
#include "settings/configuration.h"

namespace quor {

// Where a command bar may stand, as Office numbers it.
inline constexpr int32_t kBarDockedLeft = 0;
inline constexpr int32_t kBarDockedTop = 1;
inline constexpr int32_t kBarIsFloating = 4;

// Whether a record tells where a bar stood and whether it was shown. A session that never had the
// bar leaves a record of zeros in the file.
bool TellsPosition(const ToolBarRecord& record) noexcept;

// The position of such a record; the top of the window where the number is none of Office's.
int32_t BarPosition(const ToolBarRecord& record) noexcept;

// Where a floating bar goes: where it stood, moved onto the screen when that monitor is gone.
ScreenPoint FloatingCorner(const ToolBarRecord& record, const ScreenArea& workArea) noexcept;

}  // namespace quor

#endif
