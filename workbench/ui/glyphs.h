#ifndef QUOR_WORKBENCH_UI_GLYPHS_H
#define QUOR_WORKBENCH_UI_GLYPHS_H

#include <string_view>

#include "workbench/ui/canvas.h"
#include "workbench/ui/window_face.h"

namespace quor::workbench {

// Outlook's own pictures: simple shapes, drawn at the centre of the rectangle. An unknown name
// draws nothing. Names: mail, calendar, contact, task, note, journal, new, delete, reply, forward,
// print, find, receive, folder.
void DrawGlyph(CCanvas& canvas, const Rect& rect, std::string_view name);
const char* GlyphOf(Module module) noexcept;

// A small triangle pointing down or right, for menus.
void DrawArrowDown(CCanvas& canvas, const Rect& rect, Colour colour);
void DrawArrowRight(CCanvas& canvas, const Rect& rect, Colour colour);

}  // namespace quor::workbench

#endif
