#include <algorithm>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kRowHeight = 27;
constexpr int kMenuRowHeight = 24;
constexpr int kGrip = 9;
constexpr int kGroupGap = 7;
constexpr int kComboWidth = 150;
constexpr int kFloatingPosition = 4;

int ControlWidth(Painting& painting, const ControlFace& face, bool onMenuBar) {
  int width = face.showsCaption ? CaptionWidth(painting, face) + 2 * kControlPad : 0;
  if (face.kind == ControlKind::ComboBox)
    return width + (face.width != 0 ? face.width : kComboWidth) + 4;
  const bool isMenu = face.kind == ControlKind::Menu;
  if (width == 0 && !isMenu) width = kControlPad;
  if (HasPicture(face)) width += kSmallPicture + kControlPad;
  if (isMenu) width += onMenuBar ? 2 : kMenuArrow;
  return std::max(face.width, width);
}

void PaintCombo(Painting& painting, const Rect& rect, const ControlFace& face) {
  Rect field = {rect.x + 2, rect.y + (rect.height - kFieldHeight) / 2, rect.width - 4,
                kFieldHeight};
  if (face.showsCaption) {
    const int width = CaptionWidth(painting, face) + kControlPad;
    PaintCaption(painting, {rect.x + kControlPad, rect.y, width, rect.height}, face);
    field.x += width + kControlPad;
    field.width -= width + kControlPad;
  }
  PaintComboField(painting, field, face);
}

void PaintControl(Painting& painting, const Rect& rect, const ControlFace& face, bool onMenuBar) {
  if (face.kind == ControlKind::ComboBox) return PaintCombo(painting, rect, face);
  PaintOpenFrame(painting, rect.Inset(1), face, 0);
  int x = rect.x + kControlPad;
  if (HasPicture(face)) {
    PaintPicture(painting, {x, rect.y, kSmallPicture, rect.height}, face);
    x += kSmallPicture + (face.showsCaption ? 4 : kControlPad);
  }
  const bool hasArrow = face.kind == ControlKind::Menu && !onMenuBar;
  const int end = rect.Right() - (hasArrow ? kMenuArrow : 0);
  if (face.showsCaption) PaintCaption(painting, {x, rect.y, end - x, rect.height}, face);
  if (hasArrow) {
    DrawArrowDown(painting.canvas, {end - 2, rect.y + 1, kMenuArrow, rect.height},
                  CaptionStyle(painting, face).colour);
  }
  AddHit(painting, rect, face);
}

int RowHeight(const BarFace& bar) {
  return bar.menuBar ? kMenuRowHeight : kRowHeight;
}

int BarWidth(Painting& painting, const BarFace& bar) {
  int width = kGrip + 8;
  for (const ControlFace& control : bar.controls) {
    if (!control.visible) continue;
    width += ControlWidth(painting, control, bar.menuBar) + (control.beginsGroup ? kGroupGap : 0);
  }
  return width;
}

void PaintGrip(Painting& painting, const Rect& bar) {
  for (int y = bar.y + 7; y + 5 < bar.Bottom(); y += 4) {
    painting.canvas.Fill({bar.x + 4, y + 1, 2, 2}, 0xFFFFFF);
    painting.canvas.Fill({bar.x + 3, y, 2, 2}, painting.palette.separator);
  }
}

void PaintBar(Painting& painting, int left, int top, const BarFace& bar) {
  CCanvas& canvas = painting.canvas;
  const Rect rect = {left, top, BarWidth(painting, bar), RowHeight(bar)};
  if (!bar.menuBar) {
    canvas.Rounded({rect.x, rect.y + 1, rect.width, rect.height - 2}, 3, painting.palette.barEdge);
    canvas.Gradient({rect.x + 1, rect.y + 1, rect.width - 2, rect.height - 4}, 0xEAF2FD,
                    painting.palette.barEnd);
  }
  PaintGrip(painting, rect);
  int x = rect.x + kGrip;
  for (const ControlFace& control : bar.controls) {
    if (!control.visible) continue;
    if (control.beginsGroup) {
      canvas.Line(x + 3, rect.y + 5, x + 4, rect.Bottom() - 5, painting.palette.separator);
      x += kGroupGap;
    }
    const int width = ControlWidth(painting, control, bar.menuBar);
    PaintControl(painting, {x, rect.y + 1, width, rect.height - 3}, control, bar.menuBar);
    x += width;
  }
}

std::vector<const BarFace*> ShownBars(const WindowFace& face, bool floating) {
  std::vector<const BarFace*> bars;
  for (const BarFace& bar : face.bars) {
    if (bar.visible && bar.enabled && (bar.position == kFloatingPosition) == floating) {
      bars.push_back(&bar);
    }
  }
  std::ranges::stable_sort(bars, {}, &BarFace::row);
  return bars;
}

}  // namespace

int PaintToolbars(Painting& painting, int y) {
  const std::vector<const BarFace*> docked = ShownBars(painting.face, false);
  int height = 0;
  for (const BarFace* bar : docked)
    height += RowHeight(*bar);
  painting.canvas.Gradient({0, y, painting.options.width, height}, painting.palette.bar,
                           painting.palette.barEnd);
  for (const BarFace* bar : docked) {
    PaintBar(painting, 2 + std::max(0, bar->left), y, *bar);
    y += RowHeight(*bar);
  }
  painting.canvas.Line(0, y, painting.options.width, y + 1, painting.palette.barEdge);
  return y + 1;
}

void PaintFloatingBars(Painting& painting) {
  for (const BarFace* bar : ShownBars(painting.face, true)) {
    const int width = BarWidth(painting, *bar);
    painting.canvas.Fill({bar->left - 2, bar->top - 18, width + 4, kRowHeight + 20},
                         painting.palette.menuEdge);
    painting.canvas.Text({bar->left + 4, bar->top - 17, width, 16}, bar->name,
                         {.size = 11, .colour = 0xFFFFFF, .bold = true});
    PaintBar(painting, bar->left, bar->top, *bar);
  }
}

}  // namespace quor::workbench
