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

void PaintSheet(Painting& painting, const Rect& rect, Colour colour) {
  for (int step = 1; step <= 3; ++step) {
    painting.canvas.Shade({rect.x + step, rect.Bottom() + step - 1, rect.width, 1}, 0, 70 / step);
    painting.canvas.Shade({rect.Right() + step - 1, rect.y + step, 1, rect.height}, 0, 70 / step);
  }
  painting.canvas.Fill(rect, colour);
  painting.canvas.Frame(rect, painting.palette.menuEdge);
}

void PaintItem(Painting& painting, const Rect& rect, const ControlFace& item, int depth) {
  PaintOpenFrame(painting, rect.Inset(1), item, 0);
  PaintPicture(painting, {rect.x + 4, rect.y, kSmallPicture, rect.height}, item);
  PaintCaption(painting, {rect.x + kGutter + 4, rect.y, rect.width - kGutter - kArrow, rect.height},
               item);
  if (item.kind == ControlKind::Menu) {
    DrawArrowRight(painting.canvas, {rect.Right() - kArrow, rect.y, kArrow, rect.height},
                   CaptionStyle(painting, item).colour);
  }
  AddHit(painting, rect, item, depth);
}

void PaintMenu(Painting& painting, const Rect& anchor, const OpenPart& part, int depth) {
  int width = kLeastWidth;
  int count = 0;
  for (const ControlFace& item : part.items) {
    if (!item.visible) continue;
    ++count;
    const int caption = painting.canvas.TextWidth(PlainCaption(item.caption), kControlText);
    width = std::max(width, caption + kGutter + kArrow + 12);
  }
  Rect sheet = {anchor.x, anchor.Bottom(), width, count * kItemHeight + 4};
  if (depth > 0) sheet = {anchor.Right() - 2, anchor.y - 2, width, sheet.height};
  sheet.x = std::max(0, std::min(sheet.x, painting.options.width - width - 4));
  PaintSheet(painting, sheet, painting.palette.menu);
  painting.canvas.Fill({sheet.x + 1, sheet.y + 1, kGutter - 1, sheet.height - 2},
                       painting.palette.menuGutter);
  int y = sheet.y + 2;
  for (const ControlFace& item : part.items) {
    if (!item.visible) continue;
    PaintItem(painting, {sheet.x + 1, y, width - 2, kItemHeight}, item, depth + 1);
    y += kItemHeight;
  }
}

// Wider than its field if an entry needs it and the list's width allows it, but within the window.
int ListWidth(Painting& painting, const Rect& field, const ControlFace& combo, size_t count) {
  int width = std::max(field.width, combo.listWidth);
  for (size_t entry = 0; combo.listWidth < 0 && entry < count; ++entry)
    width = std::max(width, painting.canvas.TextWidth(combo.entries[entry], kControlText) + 14);
  return std::max(field.width, std::min(width, painting.options.width - field.x - 4));
}

void PaintList(Painting& painting, const Rect& field, const ControlFace& combo) {
  const size_t count = std::min(kMostEntries, combo.entries.size());
  const Rect sheet = {field.x, field.Bottom(), ListWidth(painting, field, combo, count),
                      std::max(1, static_cast<int>(count)) * kItemHeight + 2};
  PaintSheet(painting, sheet, painting.palette.field);
  TextStyle style = kControlText;
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

const ControlFace* FindControl(const WindowFace& window, int handle) {
  for (const BarFace& bar : window.bars) {
    if (const ControlFace* face = FindFace(bar.controls, handle)) return face;
  }
  for (const RibbonGroupFace& group : window.ribbon.groups) {
    if (const ControlFace* face = FindFace(group.controls, handle)) return face;
  }
  return nullptr;
}

}  // namespace

void PaintOpenParts(Painting& painting) {
  int depth = 0;
  for (const OpenPart& part : painting.options.open) {
    const auto opener = std::ranges::find_if(painting.hits, [&part](const HitArea& hit) {
      return hit.handle == part.handle &&
             (hit.kind == HitArea::Kind::Menu || hit.kind == HitArea::Kind::ComboText);
    });
    if (opener == painting.hits.end()) return;
    Rect anchor = opener->rect;  // a copy: painting adds areas
    if (opener->kind == HitArea::Kind::Menu) {
      PaintMenu(painting, anchor, part, depth++);
      continue;
    }
    anchor.width += kFieldArrow;
    if (const auto* combo = FindControl(painting.face, part.handle)) {
      PaintList(painting, anchor, *combo);
    }
    return;
  }
}

}  // namespace quor::workbench
