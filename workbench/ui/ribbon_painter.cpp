#include <algorithm>
#include <iterator>
#include <span>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kTabsHeight = 30;
constexpr int kBodyHeight = 96;
constexpr int kRowHeight = 24;
constexpr size_t kRows = 3;
constexpr int kControlsTop = 3;
constexpr int kControlsHeight = kRows * kRowHeight;
constexpr int kGroupName = 18;
constexpr int kLeastGroup = 30;
constexpr int kLargePicture = 32;
constexpr int kComboWidth = 130;

// --- Outlook's own groups, beside which the add-in's appear ---

RibbonGroupFace BuiltInGroup(const wchar_t* caption, const std::vector<const wchar_t*>& controls,
                             bool large) {
  RibbonGroupFace group;
  group.caption = caption;
  for (const wchar_t* name : controls) {
    ControlFace& face = group.controls.emplace_back();
    face.caption = name;
    face.custom = false;
    face.large = large;
  }
  return group;
}

std::vector<RibbonGroupFace> BuiltInGroups(Module module, bool inspector) {
  constexpr const wchar_t* kNew[] = {L"New Email", L"New Meeting", L"New Contact",
                                     L"New Task",  L"New Note",    L"Journal Entry"};
  if (inspector) {
    return {BuiltInGroup(L"Actions", {L"Save", L"Delete"}, true),
            BuiltInGroup(L"Communicate", {L"Email", L"Meeting"}, true)};
  }
  std::vector<RibbonGroupFace> groups = {
      BuiltInGroup(L"New", {kNew[static_cast<size_t>(module)], L"New Items"}, true)};
  if (module != Module::Calendar) groups.push_back(BuiltInGroup(L"Delete", {L"Delete"}, true));
  if (module == Module::Mail) {
    groups.push_back(BuiltInGroup(L"Respond", {L"Reply", L"Forward", L"Print"}, false));
  }
  groups.push_back(BuiltInGroup(L"Find", {L"Search People", L"Address Book"}, false));
  return groups;
}

// --- controls ---

int ControlWidth(Painting& painting, const ControlFace& face) {
  const int caption = CaptionWidth(painting, face);
  if (face.large) return std::max(kLargePicture, caption) + 4 * kControlPad;
  int width = 2 * kControlPad + caption;
  if (HasPicture(face)) width += kSmallPicture + kControlPad;
  if (face.kind == ControlKind::Menu) width += kMenuArrow;
  if (face.kind == ControlKind::ComboBox) width += kComboWidth + kControlPad;
  return width;
}

void PaintLarge(Painting& painting, const Rect& rect, const ControlFace& face) {
  PaintOpenFrame(painting, rect, face, 3);
  PaintPicture(painting, {rect.x, rect.y + 4, rect.width, kLargePicture}, face);
  PaintCaption(painting, {rect.x, rect.y + kLargePicture + 8, rect.width, 16}, face, Align::Centre);
  if (face.kind == ControlKind::Menu) {
    DrawArrowDown(painting.canvas, {rect.x, rect.Bottom() - 14, rect.width, 10},
                  CaptionStyle(painting, face).colour);
  }
  AddHit(painting, rect, face);
}

void PaintSmall(Painting& painting, const Rect& rect, const ControlFace& face) {
  const int caption = CaptionWidth(painting, face);
  if (face.kind != ControlKind::ComboBox) PaintOpenFrame(painting, rect, face, 3);
  int x = rect.x + kControlPad;
  if (HasPicture(face)) {
    PaintPicture(painting, {x, rect.y, kSmallPicture, rect.height}, face);
    x += kSmallPicture + kControlPad;
  }
  if (caption != 0) PaintCaption(painting, {x, rect.y, caption + 2, rect.height}, face);
  if (face.kind == ControlKind::ComboBox) {
    if (caption != 0) x += caption + kControlPad;
    const int width = rect.Right() - x - kControlPad;
    return PaintComboField(painting, {x, rect.y + 2, width, kFieldHeight}, face);
  }
  if (face.kind == ControlKind::Menu) {
    DrawArrowDown(painting.canvas, {x + caption + 2, rect.y + 1, kMenuArrow, rect.height},
                  CaptionStyle(painting, face).colour);
  }
  AddHit(painting, rect, face);
}

bool IsSmall(const ControlFace& face) {
  return !face.large;
}

// Paints the controls at the head of `controls` that share a column: a large control, or up to
// three rows. Removes them and returns the column's right end.
int PaintColumn(Painting& painting, int x, int y, std::span<const ControlFace>& controls) {
  const ControlFace& first = controls.front();
  if (!IsSmall(first)) {
    controls = controls.subspan(1);
    const int width = ControlWidth(painting, first);
    PaintLarge(painting, {x, y, width, kControlsHeight}, first);
    return x + width;
  }
  const auto end =
      std::ranges::find_if_not(controls.first(std::min(kRows, controls.size())), IsSmall);
  const auto column = controls.first(static_cast<size_t>(end - controls.begin()));
  controls = controls.subspan(column.size());
  int width = 0;
  for (const ControlFace& face : column)
    width = std::max(width, ControlWidth(painting, face));
  for (const ControlFace& face : column) {
    PaintSmall(painting, {x, y, width, kRowHeight}, face);
    y += kRowHeight;
  }
  return x + width + 2;
}

int PaintGroup(Painting& painting, int left, int y, const RibbonGroupFace& group) {
  std::vector<ControlFace> visible;
  std::ranges::copy_if(group.controls, std::back_inserter(visible), &ControlFace::visible);
  int right = left;
  for (std::span<const ControlFace> rest = visible; !rest.empty();)
    right = PaintColumn(painting, right, y + kControlsTop, rest);
  right = std::max(right, left + kLeastGroup);
  painting.canvas.Text({left, y + kBodyHeight - kGroupName - 2, right - left, kGroupName},
                       PlainCaption(group.caption),
                       {.size = 11, .colour = painting.palette.faintText, .align = Align::Centre});
  painting.canvas.Line(right + 3, y + 6, right + 4, y + kBodyHeight - 6,
                       painting.palette.separator);
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
  std::vector<RibbonGroupFace> groups;
  std::ranges::copy_if(painting.face.ribbon.groups, std::back_inserter(groups),
                       &RibbonGroupFace::visible);
  const auto atEnd = std::stable_partition(
      groups.begin(), groups.end(),
      [](const RibbonGroupFace& group) { return !group.insertBefore.empty(); });
  const auto builtIn = BuiltInGroups(painting.face.module, painting.face.inspector);
  groups.insert(atEnd, builtIn.begin(), builtIn.end());
  int x = 8;
  for (const RibbonGroupFace& group : groups)
    x = PaintGroup(painting, x, y, group);
  painting.canvas.Line(0, y + kBodyHeight, width, y + kBodyHeight + 1, painting.palette.barEdge);
  return y + kBodyHeight + 1;
}

}  // namespace quor::workbench
