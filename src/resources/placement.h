#ifndef QUOR_RESOURCES_PLACEMENT_H
#define QUOR_RESOURCES_PLACEMENT_H

namespace quor {

// Positions of our windows. Pixels of the virtual screen; right and bottom are exclusive.
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

// The nearest corner that keeps a window of this size inside the work area. A larger window keeps
// its upper left corner visible.
ScreenPoint KeepInside(ScreenPoint corner, int width, int height,
                       const ScreenArea& workArea) noexcept;

// Centres a window over another one and keeps it inside the work area.
ScreenPoint CentreOver(const ScreenArea& anchor, int width, int height,
                       const ScreenArea& workArea) noexcept;

// The same, but below a band at the anchor's top that is as high as the window. The band holds
// title bar and toolbar or ribbon, so the dial box stays uncovered if the work area has room.
ScreenPoint CentreBelowToolbar(const ScreenArea& anchor, int width, int height,
                               const ScreenArea& workArea) noexcept;

}  // namespace quor

#endif
