#ifndef QUOR_RESOURCES_PLACEMENT_H
#define QUOR_RESOURCES_PLACEMENT_H

namespace quor {

// Where a window of ours goes. Pixels of the virtual screen; right and bottom lie outside.
struct ScreenArea {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const noexcept { return right - left; }
  int Height() const noexcept { return bottom - top; }
};

struct ScreenPoint {
  int x = 0;
  int y = 0;

  bool operator==(const ScreenPoint&) const = default;
};

// The nearest corner at which a window of this size lies inside the work area; of a window larger
// than that, the upper left corner stays visible.
ScreenPoint KeepInside(ScreenPoint corner, int width, int height,
                       const ScreenArea& workArea) noexcept;

// Centres a window of this size over another, kept inside the work area.
ScreenPoint CentreOver(const ScreenArea& anchor, int width, int height,
                       const ScreenArea& workArea) noexcept;

// The same, but below a band as high as the window itself at the anchor's top, which holds title
// bar and toolbar or ribbon: the dial box stays uncovered wherever the work area allows it.
ScreenPoint CentreBelowToolbar(const ScreenArea& anchor, int width, int height,
                               const ScreenArea& workArea) noexcept;

}  // namespace quor

#endif
