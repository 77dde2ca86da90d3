#include <algorithm>
#include <array>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kTabsHeight = 30;
constexpr int kBodyHeight = 96;
constexpr int kRowHeight = 24;
constexpr int kRows = 3;
constexpr int kControlsTop = 3;
constexpr int kGroupName = 18;
constexpr int kPicture = 16;
constexpr int kLargePicture = 32;
constexpr int kPad = 5;
constexpr int kArrow = 12;
constexpr int kComboWidth = 130;
constexpr TextStyle kText = {.size = 12};

// --- Outlook's own groups, beside which the add-in's appear ---

struct BuiltInGroup {
  const wchar_t* caption;
  std::vector<std::pair<const wchar_t*, const char*>> large;
  std::vector<std::pair<const wchar_t*, const char*>> small;
};

std::vector<BuiltInGroup> BuiltInGroups(Module module, bool inspector) {
  if (inspector) {
    return {{L"Actions", {{L"Save", "contact"}, {L"Delete", "delete"}}, {}},
            {L"Communicate", {{L"Email", "mail"}, {L"Meeting", "calendar"}}, {}}};
  }
  const BuiltInGroup respond = {
      L"Respond", {}, {{L"Reply", "reply"}, {L"Forward", "forward"}, {L"Print", "print"}}};
  const BuiltInGroup remove = {L"Delete", {{L"Delete", "delete"}}, {}};
  const BuiltInGroup find = {
      L"Find", {}, {{L"Search People", "find"}, {L"Address Book", "contact"}}};
  switch (module) {
    case Module::Contacts:
      return {{L"New", {{L"New Contact", "contact"}, {L"New Items", "new"}}, {}}, remove, find};
    case Module::Calendar:
      return {{L"New", {{L"New Meeting", "calendar"}, {L"New Items", "new"}}, {}}, find};
    case Module::Tasks:
      return {{L"New", {{L"New Task", "task"}, {L"New Items", "new"}}, {}}, remove, find};
    case Module::Notes:
      return {{L"New", {{L"New Note", "note"}, {L"New Items", "new"}}, {}}, remove, find};
    case Module::Journal:
      return {{L"New", {{L"Journal Entry", "journal"}, {L"New Items", "new"}}, {}}, remove, find};
    case Module::Mail:
      break;
  }
  return {{L"New", {{L"New Email", "new"}, {L"New Items", "mail"}}, {}}, remove, respond, find};
}

// --- the add-in's controls ---

TextStyle CaptionStyle(const Painting& painting, const ControlFace& face, Align align) {
  TextStyle style = kText;
  style.colour = face.enabled ? painting.palette.text : painting.palette.faintText;
  style.align = align;
  return style;
}

bool IsField(const ControlFace& face) {
  return face.kind == ControlKind::ComboBox || face.kind == ControlKind::Edit ||
         face.kind == ControlKind::DropDown;
}

int CaptionWidth(Painting& painting, const ControlFace& face) {
  if (!face.showsCaption || face.caption.empty()) return 0;
  return painting.canvas.TextWidth(PlainCaption(face.caption), kText);
}

int ControlWidth(Painting& painting, const ControlFace& face) {
  const int caption = CaptionWidth(painting, face);
  if (face.large) return std::max(kLargePicture, caption) + 4 * kPad;
  int width = 2 * kPad + caption + (HasPicture(face) ? kPicture + kPad : 0);
  if (face.kind == ControlKind::Menu) width += kArrow;
  if (IsField(face)) width += kComboWidth + kPad;
  return width;
}

void PaintOpen(Painting& painting, const Rect& rect, const ControlFace& face) {
  if (!painting.IsOpen(face.handle) && !face.pressed) return;
  painting.canvas.RoundedFrame(rect, 3, painting.palette.highlight, painting.palette.highlightEdge);
}

void AddHit(Painting& painting, const Rect& rect, const ControlFace& face) {
  const auto kind = face.kind == ControlKind::Menu ? HitArea::Kind::Menu : HitArea::Kind::Button;
  painting.anchors.emplace_back(face.handle, rect);
  painting.hits.push_back({kind, rect, face.handle, 0, 0, face.enabled});
}

void PaintLarge(Painting& painting, const Rect& rect, const ControlFace& face) {
  PaintOpen(painting, rect, face);
  PaintPicture(painting, {rect.x, rect.y + 4, rect.width, kLargePicture}, face);
  painting.canvas.Text({rect.x, rect.y + kLargePicture + 8, rect.width, 16},
                       PlainCaption(face.caption), CaptionStyle(painting, face, Align::Centre));
  if (face.kind == ControlKind::Menu) {
    DrawArrowDown(painting.canvas, {rect.x, rect.Bottom() - 14, rect.width, 10},
                  CaptionStyle(painting, face, Align::Left).colour);
  }
  AddHit(painting, rect, face);
}

void PaintRow(Painting& painting, const Rect& rect, const ControlFace& face, int captionWidth) {
  CCanvas& canvas = painting.canvas;
  if (!IsField(face)) PaintOpen(painting, rect, face);
  int x = rect.x + kPad;
  if (HasPicture(face)) {
    PaintPicture(painting, {x, rect.y, kPicture, rect.height}, face);
    x += kPicture + kPad;
  }
  if (face.showsCaption) {
    canvas.Text({x, rect.y, captionWidth + 2, rect.height}, PlainCaption(face.caption),
                CaptionStyle(painting, face, Align::Left));
  }
  if (IsField(face)) {
    const int left = x + (captionWidth != 0 ? captionWidth + kPad : 0);
    painting.anchors.emplace_back(face.handle, rect);
    PaintComboField(painting, {left, rect.y + 2, rect.Right() - left - kPad, kFieldHeight}, face);
    return;
  }
  if (face.kind == ControlKind::Menu) {
    DrawArrowDown(canvas, {x + captionWidth + 2, rect.y + 1, kArrow, rect.height},
                  CaptionStyle(painting, face, Align::Left).colour);
  }
  AddHit(painting, rect, face);
}

// Fills columns of three rows from the top; each large control has its own column.
int PaintControls(Painting& painting, int left, int y, const std::vector<ControlFace>& controls) {
  int x = left;
  for (size_t first = 0; first < controls.size();) {
    if (!controls[first].visible) {
      ++first;
      continue;
    }
    if (controls[first].kind == ControlKind::Separator) {
      painting.canvas.Line(x + 2, y, x + 3, y + kRows * kRowHeight, painting.palette.separator);
      x += 5;
      ++first;
      continue;
    }
    if (controls[first].large) {
      const int width = ControlWidth(painting, controls[first]);
      PaintLarge(painting, {x, y, width, kRows * kRowHeight}, controls[first]);
      x += width;
      ++first;
      continue;
    }
    int width = 0;
    std::vector<const ControlFace*> column;
    while (first < controls.size() && column.size() < kRows && !controls[first].large &&
           controls[first].kind != ControlKind::Separator) {
      const ControlFace& face = controls[first++];
      if (!face.visible) continue;
      width = std::max(width, ControlWidth(painting, face));
      column.push_back(&face);
    }
    int row = y;
    for (const ControlFace* face : column) {
      PaintRow(painting, {x, row, width, kRowHeight}, *face, CaptionWidth(painting, *face));
      row += kRowHeight;
    }
    x += width + 2;
  }
  return x;
}

void PaintGroupEnd(Painting& painting, int left, int right, int y, const std::wstring& caption) {
  painting.canvas.Text({left, y + kBodyHeight - kGroupName - 2, right - left, kGroupName}, caption,
                       {.size = 11, .colour = painting.palette.faintText, .align = Align::Centre});
  painting.canvas.Line(right + 3, y + 6, right + 4, y + kBodyHeight - 6,
                       painting.palette.separator);
}

ControlFace BuiltInControl(const std::pair<const wchar_t*, const char*>& control) {
  ControlFace face;
  face.caption = control.first;
  face.custom = false;
  return face;
}

int PaintBuiltInGroup(Painting& painting, int left, int top, const BuiltInGroup& group) {
  const int y = top + kControlsTop;
  CCanvas& canvas = painting.canvas;
  const TextStyle style = {.size = 12, .colour = painting.palette.text, .align = Align::Centre};
  int x = left;
  for (const auto& control : group.large) {
    const int width = ControlWidth(painting, BuiltInControl(control)) + 2 * kPad;
    DrawGlyph(canvas, {x, y + 4, width, kLargePicture}, control.second);
    canvas.Text({x, y + kLargePicture + 8, width, 16}, control.first, style);
    x += width;
  }
  int width = 0;
  int row = y;
  for (const auto& control : group.small) {
    DrawGlyph(canvas, {x + kPad, row, kPicture, kRowHeight}, control.second);
    canvas.Text({x + 2 * kPad + kPicture, row, 120, kRowHeight}, control.first,
                {.size = 12, .colour = painting.palette.text});
    width = std::max(width, canvas.TextWidth(control.first, kText) + kPicture + 4 * kPad);
    row += kRowHeight;
  }
  x += width;
  PaintGroupEnd(painting, left, x, top, group.caption);
  return x + 9;
}

int PaintGroup(Painting& painting, int left, int y, const RibbonGroupFace& group) {
  const int right =
      std::max(PaintControls(painting, left, y + kControlsTop, group.controls), left + 30);
  PaintGroupEnd(painting, left, right, y, PlainCaption(group.caption));
  return right + 9;
}

void PaintTabs(Painting& painting, int y) {
  CCanvas& canvas = painting.canvas;
  const Palette& palette = painting.palette;
  canvas.Fill({0, y, painting.options.width, kTabsHeight}, palette.bar);
  canvas.Rounded({8, y + 4, 52, kTabsHeight - 6}, 3,
                 painting.face.theme == Theme::Dark ? 0x2F6FAF : palette.accent);
  canvas.Text({8, y + 4, 52, kTabsHeight - 6}, L"File",
              {.size = 13, .colour = 0xFFFFFF, .align = Align::Centre});
  const std::wstring active =
      painting.face.ribbon.caption.empty() ? L"Home" : painting.face.ribbon.caption;
  std::vector<std::wstring> tabs = {active, L"Send / Receive", L"Folder", L"View", L"Help"};
  if (painting.face.inspector) tabs = {active, L"Insert", L"Format Text", L"Review", L"Help"};
  int x = 68;
  for (size_t tab = 0; tab < tabs.size(); ++tab) {
    TextStyle style = {.size = 13,
                       .colour = tab == 0 ? palette.accent : palette.tabText,
                       .bold = tab == 0,
                       .align = Align::Centre};
    const int width = canvas.TextWidth(tabs[tab], style) + 22;
    canvas.Text({x, y, width, kTabsHeight}, tabs[tab], style);
    if (tab == 0) canvas.Rounded({x + 9, y + kTabsHeight - 4, width - 18, 3}, 1, palette.accent);
    x += width;
  }
}

}  // namespace

int PaintRibbon(Painting& painting, int y) {
  const int width = painting.options.width;
  PaintTabs(painting, y);
  y += kTabsHeight;
  painting.canvas.Gradient({0, y, width, kBodyHeight}, painting.palette.bar,
                           painting.palette.barEnd);
  int x = 8;
  std::vector<const RibbonGroupFace*> atEnd;
  for (const RibbonGroupFace& group : painting.face.ribbon.groups) {
    if (!group.visible) continue;
    if (group.insertBefore.empty()) {
      atEnd.push_back(&group);
    } else {
      x = PaintGroup(painting, x, y, group);
    }
  }
  for (const BuiltInGroup& group : BuiltInGroups(painting.face.module, painting.face.inspector))
    x = PaintBuiltInGroup(painting, x, y, group);
  for (const RibbonGroupFace* group : atEnd)
    x = PaintGroup(painting, x, y, *group);
  painting.canvas.Line(0, y + kBodyHeight, width, y + kBodyHeight + 1, painting.palette.barEdge);
  return y + kBodyHeight + 1;
}

}  // namespace quor::workbench
