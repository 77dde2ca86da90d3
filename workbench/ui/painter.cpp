#include "workbench/ui/painter.h"

#include <algorithm>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kStatusHeight = 22;
constexpr int kArrowWidth = 18;

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

const char* GlyphOfBuiltIn(const std::wstring& caption) {
  if (caption.find(L"New") != std::wstring::npos) return "new";
  if (caption.find(L"Print") != std::wstring::npos) return "print";
  if (caption.find(L"Delete") != std::wstring::npos) return "delete";
  if (caption.find(L"Reply") != std::wstring::npos) return "reply";
  if (caption.find(L"Forward") != std::wstring::npos) return "forward";
  if (caption.find(L"Receive") != std::wstring::npos) return "receive";
  if (caption.find(L"receive") != std::wstring::npos) return "receive";
  if (caption.find(L"Find") != std::wstring::npos) return "find";
  return "";
}

}  // namespace

bool Painting::IsOpen(int handle) const noexcept {
  return std::any_of(options.open.begin(), options.open.end(),
                     [handle](const OpenPart& part) { return part.handle == handle; });
}

const Rect* Painting::AnchorOf(int handle) const noexcept {
  for (const auto& [owner, rect] : anchors) {
    if (owner == handle) return &rect;
  }
  return nullptr;
}

bool HasPicture(const ControlFace& face) {
  const bool builtIn = !face.custom && face.kind == ControlKind::Button;
  return face.picture != nullptr ||
         (builtIn && *GlyphOfBuiltIn(PlainCaption(face.caption)) != '\0');
}

void PaintPicture(Painting& painting, const Rect& rect, const ControlFace& face) {
  if (face.picture != nullptr) {
    painting.canvas.Image(rect, *face.picture, !face.enabled);
  } else if (!face.custom) {
    DrawGlyph(painting.canvas, rect, GlyphOfBuiltIn(PlainCaption(face.caption)));
  }
}

void PaintComboField(Painting& painting, const Rect& field, const ControlFace& face) {
  CCanvas& canvas = painting.canvas;
  const Palette& palette = painting.palette;
  canvas.Fill(field, face.enabled ? palette.field : palette.pane);
  canvas.Frame(field, palette.fieldEdge);
  canvas.Text({field.x + 5, field.y, field.width - kArrowWidth - 6, field.height}, face.text,
              {.size = 12, .colour = face.enabled ? palette.text : palette.faintText});
  Rect text = field;
  if (face.kind != ControlKind::Edit) {
    const Rect arrow = {field.Right() - kArrowWidth, field.y, kArrowWidth, field.height};
    if (painting.IsOpen(face.handle)) canvas.Fill(arrow.Inset(1), palette.highlight);
    DrawArrowDown(canvas, arrow, face.enabled ? palette.text : palette.faintText);
    text.width -= kArrowWidth;
    painting.hits.push_back({HitArea::Kind::ComboArrow, arrow, face.handle, 0, 0, face.enabled});
  }
  painting.hits.push_back({HitArea::Kind::ComboText, text, face.handle, 0, 0, face.enabled});
}

std::vector<HitArea> PaintWindow(CCanvas& canvas, const WindowFace& face,
                                 const SceneOptions& options) {
  Painting painting = {canvas, face, PaletteOf(face.skin, face.theme), options, {}, {}};
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
