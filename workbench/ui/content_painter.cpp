#include <algorithm>

#include "workbench/ui/glyphs.h"
#include "workbench/ui/painting.h"

namespace quor::workbench {
namespace {

constexpr int kFolderWidth = 200;
constexpr int kFolderRow = 22;
constexpr int kListRow = 24;
constexpr int kHead = 30;
constexpr int kColumnHead = 22;
constexpr int kCardRow = 23;
constexpr int kPanelRow = 20;
constexpr int kButtonHeight = 24;
constexpr int kModuleRow = 26;

const wchar_t* NameOf(Module module) {
  constexpr const wchar_t* kNames[] = {L"Mail",  L"Calendar", L"Contacts",
                                       L"Tasks", L"Notes",    L"Journal"};
  return kNames[static_cast<size_t>(module)];
}

void PaintHead(Painting& painting, const Rect& area, const std::wstring& text) {
  painting.canvas.Gradient(area, painting.palette.paneHead, painting.palette.paneHeadEnd);
  painting.canvas.Text({area.x + 10, area.y, area.width - 20, area.height}, text,
                       {.size = 15, .colour = painting.palette.paneHeadText, .bold = true});
}

// Paints a row's background and returns its text colour.
Colour PaintRow(Painting& painting, const Rect& row, bool selected) {
  if (!selected) return painting.palette.text;
  painting.canvas.Fill(row, painting.palette.selection);
  return painting.palette.selectionText;
}

void PaintModules(Painting& painting, const Rect& area) {
  int y = area.Bottom() - 4 * kModuleRow;
  for (const Module module : {Module::Mail, Module::Calendar, Module::Contacts, Module::Tasks}) {
    const Rect row = {area.x, y, area.width, kModuleRow};
    painting.canvas.Line(row.x, row.y, row.Right(), row.y + 1, painting.palette.barEdge);
    const bool active = module == painting.face.module;
    if (active)
      painting.canvas.Fill({row.x, row.y + 1, row.width, row.height - 1},
                           painting.palette.highlight);
    DrawGlyph(painting.canvas, {row.x + 8, row.y, 16, row.height}, GlyphOf(module));
    painting.canvas.Text({row.x + 32, row.y, row.width - 36, row.height}, NameOf(module),
                         {.size = 12, .colour = painting.palette.text, .bold = active});
    y += kModuleRow;
  }
}

void PaintFolders(Painting& painting, const Rect& area) {
  painting.canvas.Fill(area, painting.palette.pane);
  PaintHead(painting, {area.x, area.y, area.width, kHead}, NameOf(painting.face.module));
  int y = area.y + kHead + 4;
  for (size_t index = 0; index < painting.face.folders.size(); ++index) {
    const FolderRow& folder = painting.face.folders[index];
    const Rect row = {area.x, y, area.width, kFolderRow};
    if (row.Bottom() > area.Bottom() - 4 * kModuleRow) break;
    const Colour colour = PaintRow(painting, row, folder.selected);
    const int x = row.x + 10 + folder.depth * 14;
    DrawGlyph(painting.canvas, {x, row.y, 15, row.height},
              folder.depth == 0 ? "folder" : GlyphOf(folder.kind));
    painting.canvas.Text({x + 21, row.y, row.Right() - x - 24, row.height}, folder.name,
                         {.size = 12, .colour = colour, .bold = folder.depth == 0});
    painting.hits.push_back({HitArea::Kind::Folder, row, 0, index, 0, true});
    y += kFolderRow;
  }
  PaintModules(painting, area);
  painting.canvas.Line(area.Right() - 1, area.y, area.Right(), area.Bottom(),
                       painting.palette.barEdge);
}

void PaintCells(Painting& painting, const Rect& row, const std::vector<std::wstring>& cells,
                const TextStyle& style) {
  if (cells.empty()) return;
  // The first column is the widest.
  const int share = row.width / (static_cast<int>(cells.size()) * 2 + 1);
  int x = row.x;
  for (size_t cell = 0; cell < cells.size(); ++cell) {
    const int width = cell == 0 ? 3 * share : 2 * share;
    painting.canvas.Text({x + 6, row.y, width - 8, row.height}, cells[cell], style);
    x += width;
  }
}

void PaintList(Painting& painting, const Rect& area) {
  const Palette& palette = painting.palette;
  painting.canvas.Fill(area, palette.field);
  const Rect head = {area.x, area.y, area.width, kColumnHead};
  painting.canvas.Fill(head, palette.pane);
  painting.canvas.Line(head.x, head.Bottom() - 1, head.Right(), head.Bottom(), palette.barEdge);
  PaintCells(painting, {head.x + 22, head.y, head.width - 22, head.height}, painting.face.columns,
             {.size = 11, .colour = palette.faintText});
  int y = head.Bottom();
  for (size_t index = 0; index < painting.face.rows.size(); ++index) {
    const Rect row = {area.x, y, area.width, kListRow};
    if (row.Bottom() > area.Bottom()) break;
    const ListRow& item = painting.face.rows[index];
    const Colour colour = PaintRow(painting, row, item.selected);
    DrawGlyph(painting.canvas, {row.x + 5, row.y, 15, row.height}, GlyphOf(painting.face.module));
    PaintCells(painting, {row.x + 22, row.y, row.width - 22, row.height}, item.cells,
               {.size = 12, .colour = colour});
    painting.hits.push_back({HitArea::Kind::Row, row, 0, index, 0, true});
    y += kListRow;
  }
}

void PaintCard(Painting& painting, const Rect& area) {
  CCanvas& canvas = painting.canvas;
  const Palette& palette = painting.palette;
  canvas.Fill(area, palette.field);
  canvas.Line(area.x, area.y, area.x + 1, area.Bottom(), palette.barEdge);
  if (painting.face.cardTitle.empty()) return;
  canvas.Disc({area.x + 36.0, area.y + 36.0}, 22, palette.selection);
  DrawGlyph(canvas, {area.x + 22, area.y + 22, 28, 28}, GlyphOf(painting.face.module));
  canvas.Text({area.x + 68, area.y + 18, area.width - 76, 36}, painting.face.cardTitle,
              {.size = 20, .colour = palette.text});
  int y = area.y + 70;
  for (const CardLine& line : painting.face.card) {
    if (y + kCardRow > area.Bottom()) break;
    canvas.Text({area.x + 16, y, 120, kCardRow}, line.label,
                {.size = 12, .colour = palette.faintText});
    const Rect value = {area.x + 140, y, area.width - 150, kCardRow};
    if (painting.face.inspector) {
      canvas.Frame({value.x - 6, value.y + 1, std::min(value.width, 320), kCardRow - 2},
                   palette.fieldEdge);
    }
    canvas.Text(value, line.value, {.size = 12, .colour = palette.text});
    y += kCardRow;
  }
}

void PaintLine(Painting& painting, const Rect& row, const PanelLine& line) {
  constexpr Colour kLeds[] = {0x8C939C, 0x34B24A, 0xF2A81D, 0xE0352B};  // as Led
  const Point centre = {row.x + 17.0, row.y + row.height / 2.0};
  if (line.led != Led::Off) painting.canvas.Disc(centre, 6.5, painting.palette.highlight);
  painting.canvas.Disc(centre, 4.5, kLeds[static_cast<size_t>(line.led)]);
  painting.canvas.Text({row.x + 30, row.y, row.width - 38, row.height}, line.text,
                       {.size = 12, .colour = painting.palette.text});
}

}  // namespace

void PaintContent(Painting& painting, const Rect& area) {
  if (painting.face.inspector) {
    PaintCard(painting, area);
    return;
  }
  const int folders = std::min(kFolderWidth, area.width / 4);
  PaintFolders(painting, {area.x, area.y, folders, area.height});
  const int rest = area.width - folders;
  const int list = painting.face.cardTitle.empty() ? rest : rest * 55 / 100;
  PaintList(painting, {area.x + folders, area.y, list, area.height});
  if (list != rest) {
    PaintCard(painting, {area.x + folders + list, area.y, rest - list, area.height});
  }
}

void PaintPanel(Painting& painting, const Rect& area) {
  const Palette& palette = painting.palette;
  painting.canvas.Fill(area, palette.pane);
  painting.canvas.Line(area.x, area.y, area.x + 1, area.Bottom(), palette.barEdge);
  PaintHead(painting, {area.x + 1, area.y, area.width - 1, kHead}, painting.face.panel.title);
  int y = area.y + kHead + 6;
  for (const PanelLine& line : painting.face.panel.lines) {
    PaintLine(painting, {area.x, y, area.width, kPanelRow}, line);
    y += kPanelRow;
  }
  y += 8;
  const int width = (area.width - 30) / 2;
  bool left = true;
  std::wstring hint = L"Point at a button to read what it does.";
  for (const PanelButton& button : painting.face.panel.buttons) {
    const Rect rect = {area.x + (left ? 10 : 20 + width), y, width, kButtonHeight};
    painting.canvas.RoundedFrame(rect, 3, palette.field, palette.fieldEdge);
    painting.canvas.Text(rect, button.caption,
                         {.size = 12,
                          .colour = button.enabled ? palette.text : palette.faintText,
                          .align = Align::Centre});
    painting.hits.push_back({HitArea::Kind::PanelButton, rect, button.id, 0, 0, button.enabled});
    if (button.id == painting.options.explained) hint = button.hint;
    if (!left) y += kButtonHeight + 6;
    left = !left;
  }
  if (!left) y += kButtonHeight + 6;
  painting.canvas.Text({area.x + 12, y + 6, area.width - 22, area.Bottom() - y - 6}, hint,
                       {.size = 12, .colour = palette.text, .wrapped = true});
}

}  // namespace quor::workbench
