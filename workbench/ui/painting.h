#ifndef QUOR_WORKBENCH_UI_PAINTING_H
#define QUOR_WORKBENCH_UI_PAINTING_H

#include <vector>

#include "workbench/ui/painter.h"
#include "workbench/ui/theme.h"

// The parts of a window, one file each. They share the canvas, the palette and the list of
// clickable parts.

namespace quor::workbench {

struct Painting {
  CCanvas& canvas;
  const WindowFace& face;
  const Palette& palette;
  const SceneOptions& options;
  std::vector<HitArea> hits;
  // Where the control with that handle was drawn; an open menu starts there.
  std::vector<std::pair<int, Rect>> anchors;

  bool IsOpen(int handle) const noexcept;
  const Rect* AnchorOf(int handle) const noexcept;
};

// Each draws downwards from `y` over the given width and returns its lower end.
int PaintToolbars(Painting& painting, int y);
void PaintFloatingBars(Painting& painting);
int PaintRibbon(Painting& painting, int y);
void PaintContent(Painting& painting, const Rect& area);
void PaintPanel(Painting& painting, const Rect& area);
void PaintOpenParts(Painting& painting);

// A combo box's field with text and arrow; adds its two hit areas.
void PaintComboField(Painting& painting, const Rect& field, const ControlFace& face);
// The picture of a control, or the symbol of a built-in one.
void PaintPicture(Painting& painting, const Rect& rect, const ControlFace& face);
bool HasPicture(const ControlFace& face);
constexpr int kFieldHeight = 20;

}  // namespace quor::workbench

#endif
