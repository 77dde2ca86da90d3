#include "resources/placement.h"

#include <algorithm>

namespace quor {
namespace {

int Inside(int position, int size, int begin, int end) noexcept {
  return std::max(begin, std::min(position, end - size));
}

ScreenPoint Centre(const ScreenArea& anchor, int width, int height) noexcept {
  return {anchor.left + (anchor.Width() - width) / 2, anchor.top + (anchor.Height() - height) / 2};
}

}  // namespace

ScreenPoint KeepInside(ScreenPoint corner, int width, int height,
                       const ScreenArea& workArea) noexcept {
  return {Inside(corner.x, width, workArea.left, workArea.right),
          Inside(corner.y, height, workArea.top, workArea.bottom)};
}

ScreenPoint CentreOver(const ScreenArea& anchor, int width, int height,
                       const ScreenArea& workArea) noexcept {
  return KeepInside(Centre(anchor, width, height), width, height, workArea);
}

ScreenPoint CentreBelowToolbar(const ScreenArea& anchor, int width, int height,
                               const ScreenArea& workArea) noexcept {
  ScreenPoint corner = Centre(anchor, width, height);
  corner.y = std::max(corner.y, anchor.top + height);
  return KeepInside(corner, width, height, workArea);
}

}  // namespace quor
