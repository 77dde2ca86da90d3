#include <algorithm>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kItemHeight = 23;
constexpr int kGutter = 28;
constexpr int kArrow = 18;
constexpr int kLeastWidth = 110;
constexpr size_t kMostEntries = 12;
constexpr TextStyle kText = {.size = 12};

void PaintShadow(Painting& painting, const Rect& rect) {
  for (int step = 1; step <= 3; ++step) {
    painting.canvas.Shade({rect.x + step, rect.Bottom() + step - 1, rect.width, 1}, 0, 70 / step);
    painting.canvas.Shade({rect.Right() + step - 1, rect.y + step, 1, rect.height}, 0, 70 / step);
  }
}

void PaintSheet(Painting& painting, const Rect& rect, int gutter) {
  PaintShadow(painting, rect);
  painting.canvas.Fill(rect, painting.palette.menu);
  painting.canvas.Fill({rect.x, rect.y, gutter, rect.height}, painting.palette.menuGutter);
  painting.canvas.Frame(rect, painting.palette.menuEdge);
}

void PaintItem(Painting& painting, const Rect& rect, const ControlFace& item, int depth) {
  CCanvas& canvas = painting.canvas;
  if (painting.IsOpen(item.handle)) {
    canvas.Fill(rect.Inset(1), painting.palette.highlight);
    canvas.Frame(rect.Inset(1), painting.palette.highlightEdge);
  }
  TextStyle style = kText;
  style.colour = item.enabled ? painting.palette.text : painting.palette.faintText;
  if (HasPicture(item)) PaintPicture(painting, {rect.x + 4, rect.y, 16, rect.height}, item);
  canvas.Text({rect.x + kGutter + 4, rect.y, rect.width - kGutter - kArrow, rect.height},
              PlainCaption(item.caption), style);
  const bool isMenu = item.kind == ControlKind::Menu;
  if (isMenu)
    DrawArrowRight(canvas, {rect.Right() - kArrow, rect.y, kArrow, rect.height}, style.colour);
  painting.anchors.emplace_back(item.handle, rect);
  painting.hits.push_back({isMenu ? HitArea::Kind::Menu : HitArea::Kind::Button, rect, item.handle,
                           0, depth, item.enabled});
}

void PaintMenu(Painting& painting, const Rect& anchor, const OpenPart& part, int depth) {
  int width = kLeastWidth;
  int count = 0;
  for (const ControlFace& item : part.items) {
    if (!item.visible) continue;
    ++count;
    width = std::max(width, painting.canvas.TextWidth(PlainCaption(item.caption), kText) + kGutter +
                                kArrow + 12);
  }
  Rect sheet = {anchor.x, anchor.Bottom(), width, count * kItemHeight + 4};
  if (depth > 0) sheet = {anchor.Right() - 2, anchor.y - 2, width, sheet.height};
  sheet.x = std::max(0, std::min(sheet.x, painting.options.width - width - 4));
  PaintSheet(painting, sheet, kGutter);
  int y = sheet.y + 2;
  for (const ControlFace& item : part.items) {
    if (!item.visible) continue;
    const Rect row = {sheet.x + 1, y, width - 2, kItemHeight};
    if (item.kind == ControlKind::Separator) {
      painting.canvas.Line(row.x + kGutter, y + kItemHeight / 2, row.Right(),
                           y + kItemHeight / 2 + 1, painting.palette.separator);
    } else {
      PaintItem(painting, row, item, depth + 1);
    }
    y += kItemHeight;
  }
}

void PaintList(Painting& painting, const Rect& field, const ControlFace& combo) {
  const size_t count = std::min(kMostEntries, combo.entries.size());
  // Wider than its field if an entry needs it and the list's width allows it, but within the
  // window.
  int width = std::max(field.width, combo.listWidth);
  for (size_t entry = 0; combo.listWidth < 0 && entry < count; ++entry)
    width = std::max(width, painting.canvas.TextWidth(combo.entries[entry], kText) + 14);
  width = std::max(field.width, std::min(width, painting.options.width - field.x - 4));
  const Rect sheet = {field.x, field.Bottom(), width,
                      std::max(1, static_cast<int>(count)) * kItemHeight + 2};
  PaintShadow(painting, sheet);
  painting.canvas.Fill(sheet, painting.palette.field);
  painting.canvas.Frame(sheet, painting.palette.menuEdge);
  TextStyle style = kText;
  for (size_t entry = 0; entry < count; ++entry) {
    const Rect row = {sheet.x + 1, sheet.y + 1 + static_cast<int>(entry) * kItemHeight,
                      sheet.width - 2, kItemHeight};
    const bool chosen = combo.entries[entry] == combo.text;
    if (chosen) painting.canvas.Fill(row, painting.palette.selection);
    style.colour = chosen ? painting.palette.selectionText : painting.palette.text;
    painting.canvas.Text({row.x + 4, row.y, row.width - 8, row.height}, combo.entries[entry],
                         style);
    painting.hits.push_back({HitArea::Kind::ComboEntry, row, combo.handle, entry, 1, true});
  }
}

const ControlFace* FindHandle(const std::vector<ControlFace>& faces, int handle) {
  for (const ControlFace& face : faces) {
    if (face.handle == handle) return &face;
  }
  return nullptr;
}

const ControlFace* FindControl(const WindowFace& window, int handle) {
  if (window.skin == Skin::Toolbars) {
    for (const BarFace& bar : window.bars) {
      if (const ControlFace* face = FindHandle(bar.controls, handle)) return face;
    }
  }
  for (const RibbonGroupFace& group : window.ribbon.groups) {
    if (const ControlFace* face = FindHandle(group.controls, handle)) return face;
  }
  return nullptr;
}

}  // namespace

void PaintOpenParts(Painting& painting) {
  int depth = 0;
  for (const OpenPart& part : painting.options.open) {
    const Rect* known = painting.AnchorOf(part.handle);
    if (known == nullptr) return;
    const Rect anchor = *known;  // a copy: painting adds anchors
    const ControlFace* control = depth == 0 ? FindControl(painting.face, part.handle) : nullptr;
    if (control != nullptr && control->kind != ControlKind::Menu) {
      const auto field =
          std::find_if(painting.hits.begin(), painting.hits.end(), [&part](const HitArea& hit) {
            return hit.kind == HitArea::Kind::ComboText && hit.handle == part.handle;
          });
      if (field == painting.hits.end()) return;
      Rect list = field->rect;
      list.width += 18;
      PaintList(painting, list, *control);
      return;
    }
    PaintMenu(painting, anchor, part, depth++);
  }
}

}  // namespace quor::workbench
