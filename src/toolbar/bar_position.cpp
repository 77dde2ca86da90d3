#include "toolbar/bar_position.h"

namespace quor {

bool TellsPosition(const ToolBarRecord& record) noexcept {
  return record.read != 0 && record.width > 0 && record.height > 0;
}

int32_t BarPosition(const ToolBarRecord& record) noexcept {
  const bool known = record.position >= kBarDockedLeft && record.position <= kBarIsFloating;
  return known ? record.position : kBarDockedTop;
}

ScreenPoint FloatingCorner(const ToolBarRecord& record, const ScreenArea& workArea) noexcept {
  return KeepInside({record.left, record.top}, record.width, record.height, workArea);
}

}  // namespace quor
