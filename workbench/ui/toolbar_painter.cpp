#include <algorithm>
#include <map>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kRowHeight = 27;
constexpr int kMenuRowHeight = 24;
constexpr int kPicture = 16;
constexpr int kPad = 5;
constexpr int kArrow = 12;
constexpr int kGrip = 9;
constexpr int kComboWidth = 150;
constexpr int kFloatingPosition = 4;
constexpr TextStyle kText = {.size = 12};

struct BarLook {
  int height;
  bool menuBar;
};

int ControlWidth(Painting& painting, const ControlFace& face, const BarLook& look) {
  CCanvas& canvas = painting.canvas;
  const int caption =
      face.showsCaption ? canvas.TextWidth(PlainCaption(face.caption), kText) + 2 * kPad : 0;
  const int picture = HasPicture(face) ? kPicture + kPad : 0;
  switch (face.kind) {
    case ControlKind::ComboBox:
    case ControlKind::Edit:
    case ControlKind::DropDown:
      return caption + (face.width != 0 ? face.width : kComboWidth) + 4;
    case ControlKind::Menu:
      return std::max(face.width, picture + caption + (look.menuBar ? 2 : kArrow));
    default:
      return std::max(face.width, picture + (caption != 0 ? caption : kPad));
  }
}

TextStyle CaptionStyle(const Painting& painting, const ControlFace& face) {
  TextStyle style = kText;
  style.colour = face.enabled ? painting.palette.text : painting.palette.faintText;
  return style;
}

void PaintCombo(Painting& painting, const Rect& rect, const ControlFace& face) {
  Rect field = {rect.x + 2, rect.y + (rect.height - kFieldHeight) / 2, rect.width - 4,
                kFieldHeight};
  if (face.showsCaption) {
    const std::wstring caption = PlainCaption(face.caption);
    const int width = painting.canvas.TextWidth(caption, kText) + kPad;
    painting.canvas.Text({rect.x + kPad, rect.y, width, rect.height}, caption,
                         CaptionStyle(painting, face));
    field.x += width + kPad;
    field.width -= width + kPad;
  }
  PaintComboField(painting, field, face);
}

void PaintControl(Painting& painting, const Rect& rect, const ControlFace& face,
                  const BarLook& look) {
  CCanvas& canvas = painting.canvas;
  const Palette& palette = painting.palette;
  painting.anchors.emplace_back(face.handle, rect);
  if (face.kind == ControlKind::ComboBox || face.kind == ControlKind::Edit ||
      face.kind == ControlKind::DropDown) {
    PaintCombo(painting, rect, face);
    return;
  }
  if (painting.IsOpen(face.handle) || face.pressed) {
    canvas.Fill(rect.Inset(1), palette.highlight);
    canvas.Frame(rect.Inset(1), palette.highlightEdge);
  }
  int x = rect.x + kPad;
  if (HasPicture(face)) {
    PaintPicture(painting, {x, rect.y, kPicture, rect.height}, face);
    x += kPicture + (face.showsCaption ? 4 : kPad);
  }
  const bool isMenu = face.kind == ControlKind::Menu;
  const int end = rect.Right() - (isMenu && !look.menuBar ? kArrow : 0);
  if (face.showsCaption) {
    canvas.Text({x, rect.y, end - x, rect.height}, PlainCaption(face.caption),
                CaptionStyle(painting, face));
  }
  if (isMenu && !look.menuBar) {
    DrawArrowDown(canvas, {end - 2, rect.y + 1, kArrow, rect.height},
                  CaptionStyle(painting, face).colour);
  }
  painting.hits.push_back({isMenu ? HitArea::Kind::Menu : HitArea::Kind::Button, rect, face.handle,
                           0, 0, face.enabled});
}

int BarWidth(Painting& painting, const BarFace& bar, const BarLook& look) {
  int width = kGrip + 8;
  for (const ControlFace& control : bar.controls) {
    if (control.visible) {
      width += ControlWidth(painting, control, look) + (control.beginsGroup ? 7 : 0);
    }
  }
  return width;
}

void PaintGrip(Painting& painting, const Rect& bar) {
  for (int y = bar.y + 7; y + 5 < bar.Bottom(); y += 4) {
    painting.canvas.Fill({bar.x + 4, y + 1, 2, 2}, 0xFFFFFF);
    painting.canvas.Fill({bar.x + 3, y, 2, 2}, painting.palette.separator);
  }
}

void PaintBar(Painting& painting, const Rect& rect, const BarFace& bar) {
  CCanvas& canvas = painting.canvas;
  const BarLook look = {rect.height, bar.menuBar};
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
      x += 7;
    }
    const int width = ControlWidth(painting, control, look);
    PaintControl(painting, {x, rect.y + 1, width, rect.height - 3}, control, look);
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
  std::stable_sort(bars.begin(), bars.end(),
                   [](const BarFace* a, const BarFace* b) { return a->row < b->row; });
  return bars;
}

}  // namespace

int PaintToolbars(Painting& painting, int y) {
  const int top = y;
  const std::vector<const BarFace*> docked = ShownBars(painting.face, false);
  int height = 0;
  for (const BarFace* bar : docked)
    height += bar->menuBar ? kMenuRowHeight : kRowHeight;
  painting.canvas.Gradient({0, y, painting.options.width, height}, painting.palette.bar,
                           painting.palette.barEnd);
  for (const BarFace* bar : docked) {
    const int row = bar->menuBar ? kMenuRowHeight : kRowHeight;
    const int width = BarWidth(painting, *bar, {row, bar->menuBar});
    PaintBar(painting, {2 + std::max(0, bar->left), y, width, row}, *bar);
    y += row;
  }
  painting.canvas.Line(0, top + height, painting.options.width, top + height + 1,
                       painting.palette.barEdge);
  return top + height + 1;
}

void PaintFloatingBars(Painting& painting) {
  for (const BarFace* bar : ShownBars(painting.face, true)) {
    const Rect rect = {bar->left, bar->top, BarWidth(painting, *bar, {kRowHeight, false}),
                       kRowHeight};
    CCanvas& canvas = painting.canvas;
    canvas.Fill({rect.x - 2, rect.y - 18, rect.width + 4, rect.height + 20},
                painting.palette.menuEdge);
    canvas.Text({rect.x + 4, rect.y - 17, rect.width, 16}, bar->name,
                {.size = 11, .colour = 0xFFFFFF, .bold = true});
    PaintBar(painting, rect, *bar);
  }
}

}  // namespace quor::workbench
