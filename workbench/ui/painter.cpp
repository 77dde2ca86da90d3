#include "workbench/ui/painter.h"

#include <algorithm>
#include <utility>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kStatusHeight = 22;

void PaintTitle(Painting& painting) {
  CCanvas& canvas = painting.canvas;
  const int width = painting.options.width;
  const Palette& palette = painting.palette;
  if (painting.face.skin == Skin::Toolbars) {
    canvas.Gradient({0, 0, width, kTitleHeight}, 0x3C8CF8, palette.title);
  } else {
    canvas.Fill({0, 0, width, kTitleHeight}, palette.title);
  }
  DrawGlyph(canvas, {8, 0, 16, kTitleHeight}, GlyphOf(painting.face.module));
  canvas.Text(
      {32, 0, width - 160, kTitleHeight}, painting.face.title,
      {.size = 13, .colour = palette.titleText, .bold = painting.face.skin == Skin::Toolbars});
  const int y = kTitleHeight / 2;
  canvas.Fill({width - 104, y, 10, 1}, palette.titleText);
  canvas.Frame({width - 64, y - 5, 10, 10}, palette.titleText);
  canvas.Polygon({{width - 24.7, y - 4.3},
                  {width - 24.0, y - 5.0},
                  {width - 14.0, y + 5.0},
                  {width - 14.7, y + 5.7}},
                 palette.titleText);
  canvas.Polygon({{width - 14.7, y - 5.0},
                  {width - 14.0, y - 4.3},
                  {width - 24.0, y + 5.7},
                  {width - 24.7, y + 5.0}},
                 palette.titleText);
}

void PaintStatus(Painting& painting, const Rect& area) {
  const bool notice = !painting.options.notice.empty();
  painting.canvas.Fill(area, painting.palette.status);
  painting.canvas.Text({area.x + 10, area.y, area.width - 20, area.height},
                       notice ? painting.options.notice : painting.face.status,
                       {.size = 12, .colour = painting.palette.statusText, .bold = notice});
}

// The glyph of one of Outlook's own buttons, by the first word that its caption contains; null for
// other controls.
const char* GlyphOfBuiltIn(const ControlFace& face) {
  constexpr std::pair<const wchar_t*, const char*> kGlyphs[] = {
      {L"Email", "mail"},      {L"Meeting", "calendar"}, {L"Contact", "contact"},
      {L"Task", "task"},       {L"Note", "note"},        {L"Journal", "journal"},
      {L"New", "new"},         {L"Print", "print"},      {L"Delete", "delete"},
      {L"Reply", "reply"},     {L"Forward", "forward"},  {L"Receive", "receive"},
      {L"receive", "receive"}, {L"Find", "find"},        {L"Search", "find"},
      {L"Address", "contact"}, {L"Save", "contact"}};
  if (face.custom || face.kind != ControlKind::Button) return nullptr;
  const std::wstring caption = PlainCaption(face.caption);
  for (const auto& [word, glyph] : kGlyphs) {
    if (caption.find(word) != std::wstring::npos) return glyph;
  }
  return nullptr;
}

}  // namespace

bool Painting::IsOpen(int handle) const noexcept {
  return std::ranges::find(options.open, handle, &OpenPart::handle) != options.open.end();
}

TextStyle CaptionStyle(const Painting& painting, const ControlFace& face, Align align) {
  TextStyle style = kControlText;
  style.colour = face.enabled ? painting.palette.text : painting.palette.faintText;
  style.align = align;
  return style;
}

int CaptionWidth(Painting& painting, const ControlFace& face) {
  if (!face.showsCaption || face.caption.empty()) return 0;
  return painting.canvas.TextWidth(PlainCaption(face.caption), kControlText);
}

void PaintCaption(Painting& painting, const Rect& rect, const ControlFace& face, Align align) {
  painting.canvas.Text(rect, PlainCaption(face.caption), CaptionStyle(painting, face, align));
}

void PaintOpenFrame(Painting& painting, const Rect& rect, const ControlFace& face, int radius) {
  if (!painting.IsOpen(face.handle) && !face.pressed) return;
  painting.canvas.RoundedFrame(rect, radius, painting.palette.highlight,
                               painting.palette.highlightEdge);
}

bool HasPicture(const ControlFace& face) {
  return face.picture != nullptr || GlyphOfBuiltIn(face) != nullptr;
}

void PaintPicture(Painting& painting, const Rect& rect, const ControlFace& face) {
  if (face.picture != nullptr) {
    painting.canvas.Image(rect, *face.picture, !face.enabled);
  } else if (const char* glyph = GlyphOfBuiltIn(face)) {
    DrawGlyph(painting.canvas, rect, glyph);
  }
}

void AddHit(Painting& painting, const Rect& rect, const ControlFace& face, int depth) {
  if (face.handle == 0) return;  // Outlook's own controls on the ribbon do nothing
  const auto kind = face.kind == ControlKind::Menu ? HitArea::Kind::Menu : HitArea::Kind::Button;
  painting.hits.push_back({kind, rect, face.handle, 0, depth, face.enabled});
}

void PaintComboField(Painting& painting, const Rect& field, const ControlFace& face) {
  CCanvas& canvas = painting.canvas;
  const Palette& palette = painting.palette;
  canvas.Fill(field, face.enabled ? palette.field : palette.pane);
  canvas.Frame(field, palette.fieldEdge);
  const TextStyle style = CaptionStyle(painting, face);
  canvas.Text({field.x + 5, field.y, field.width - kFieldArrow - 6, field.height}, face.text,
              style);
  const Rect arrow = {field.Right() - kFieldArrow, field.y, kFieldArrow, field.height};
  if (painting.IsOpen(face.handle)) canvas.Fill(arrow.Inset(1), palette.highlight);
  DrawArrowDown(canvas, arrow, style.colour);
  painting.hits.push_back({HitArea::Kind::ComboArrow, arrow, face.handle, 0, 0, face.enabled});
  const Rect text = {field.x, field.y, field.width - kFieldArrow, field.height};
  painting.hits.push_back({HitArea::Kind::ComboText, text, face.handle, 0, 0, face.enabled});
}

std::vector<HitArea> PaintWindow(CCanvas& canvas, const WindowFace& face,
                                 const SceneOptions& options) {
  Painting painting = {canvas, face, PaletteOf(face.skin, face.theme), options, {}};
  int y = 0;
  if (options.titleBar) {
    PaintTitle(painting);
    y = kTitleHeight;
  }
  y = face.skin == Skin::Toolbars ? PaintToolbars(painting, y) : PaintRibbon(painting, y);
  const int bottom = options.height + (options.titleBar ? kTitleHeight : 0) - kStatusHeight;
  const int panel = face.panel.lines.empty() ? 0 : std::min(kPanelWidth, options.width / 3);
  PaintContent(painting, {0, y, options.width - panel, bottom - y});
  if (panel != 0) PaintPanel(painting, {options.width - panel, y, panel, bottom - y});
  PaintStatus(painting, {0, bottom, options.width, kStatusHeight});
  if (face.skin == Skin::Toolbars) PaintFloatingBars(painting);
  PaintOpenParts(painting);
  return std::move(painting.hits);
}

}  // namespace quor::workbench
