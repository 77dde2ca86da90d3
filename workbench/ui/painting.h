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

  bool IsOpen(int handle) const noexcept;
};

// Each draws downwards from `y` over the given width and returns its lower end.
int PaintToolbars(Painting& painting, int y);
void PaintFloatingBars(Painting& painting);
int PaintRibbon(Painting& painting, int y);
void PaintContent(Painting& painting, const Rect& area);
void PaintPanel(Painting& painting, const Rect& area);
void PaintOpenParts(Painting& painting);

// --- controls, on bars, ribbon and menus ---

constexpr int kFieldHeight = 20;
constexpr int kFieldArrow = 18;  // width of a combo box's button
constexpr int kSmallPicture = 16;
constexpr int kMenuArrow = 12;
constexpr int kControlPad = 5;
constexpr TextStyle kControlText = {.size = 12};

TextStyle CaptionStyle(const Painting& painting, const ControlFace& face,
                       Align align = Align::Left);
// Pixels; 0 without a caption.
int CaptionWidth(Painting& painting, const ControlFace& face);
void PaintCaption(Painting& painting, const Rect& rect, const ControlFace& face,
                  Align align = Align::Left);
// The frame behind a control that is open or pressed.
void PaintOpenFrame(Painting& painting, const Rect& rect, const ControlFace& face, int radius);
// A combo box's field with text and arrow; adds its two hit areas.
void PaintComboField(Painting& painting, const Rect& field, const ControlFace& face);
// The picture of a control, or the symbol of a built-in one.
void PaintPicture(Painting& painting, const Rect& rect, const ControlFace& face);
bool HasPicture(const ControlFace& face);
// The hit area of a button or menu.
void AddHit(Painting& painting, const Rect& rect, const ControlFace& face, int depth = 0);

}  // namespace quor::workbench

#endif
