#include "workbench/ui/glyphs.h"

#include <algorithm>
#include <sstream>

namespace quor::workbench {
namespace {

constexpr Colour kInk = 0x3B6EA5;
constexpr Colour kPaper = 0xFDFDFD;
constexpr Colour kGold = 0xE8B339;
constexpr Colour kCream = 0xF7DE9A;
constexpr Colour kRed = 0xC8372D;
constexpr Colour kGreen = 0x3E9B4F;
constexpr Colour kViolet = 0x8A4FA8;
constexpr Colour kGrey = 0x6B7480;
constexpr Colour kSkin = 0xE3A878;
constexpr Colour kGlass = 0xD6E9F8;

// A filled polygon of a glyph: the x and y of its corners on a grid of 16 by 16.
struct Shape {
  std::string_view glyph;
  Colour colour;
  const char* corners;
};

// The shapes of one glyph from the lowest to the topmost.
constexpr Shape kShapes[] = {
    {"mail", kInk, "1 3  15 3  15 13  1 13"},
    {"mail", kPaper, "2 4  14 4  14 12  2 12"},
    {"mail", kInk, "2 4  8 9.4  14 4  14 5.4  8 10.8  2 5.4"},
    {"calendar", kGrey, "2 2  14 2  14 14  2 14"},
    {"calendar", kPaper, "3 3  13 3  13 13  3 13"},
    {"calendar", kRed, "3 3  13 3  13 6  3 6"},
    {"calendar", kGrey, "4.3 7.4  6.1 7.4  6.1 9.2  4.3 9.2"},
    {"calendar", kGrey, "7.1 7.4  8.9 7.4  8.9 9.2  7.1 9.2"},
    {"calendar", kGrey, "9.9 7.4  11.7 7.4  11.7 9.2  9.9 9.2"},
    {"calendar", kGrey, "4.3 10.2  6.1 10.2  6.1 12  4.3 12"},
    {"calendar", kGrey, "7.1 10.2  8.9 10.2  8.9 12  7.1 12"},
    {"calendar", kGrey, "9.9 10.2  11.7 10.2  11.7 12  9.9 12"},
    {"contact", kSkin,
     "8 1.8  9.7 2.3  10.8 3.6  11 5  10.4 6.7  9.2 7.7  6.8 7.7  5.6 6.7  5 5  5.2 3.6  6.3 2.3"},
    {"contact", kGreen, "2 14  3 10.4  6 8.8  10 8.8  13 10.4  14 14"},
    {"task", kGrey, "2 2  14 2  14 14  2 14"},
    {"task", kPaper, "3 3  13 3  13 13  3 13"},
    {"task", kPaper, "3 3  13 3  13 6  3 6"},
    {"task", kGreen, "4.2 8.6  5.6 7.2  7.4 9.2  11.4 4.2  12.6 5.4  7.4 11.8"},
    {"note", kGold, "2 2  14 2  14 10  10 14  2 14"},
    {"note", kPaper, "10 14  10 10  14 10"},
    {"journal", kViolet, "3 2  13 2  13 14  3 14"},
    {"journal", kPaper, "5 4  11 4  11 6.4  5 6.4"},
    {"journal", kGold, "3 2  4.4 2  4.4 14  3 14"},
    {"new", kInk, "1 3  15 3  15 13  1 13"},
    {"new", kPaper, "2 4  14 4  14 12  2 12"},
    {"new", kInk, "2 4  8 9.4  14 4  14 5.4  8 10.8  2 5.4"},
    {"new", kGold, "12 0.4  13 3  15.6 4  13 5  12 7.6  11 5  8.4 4  11 3"},
    {"delete", kRed,
     "3 4.6  4.6 3  8 6.4  11.4 3  13 4.6  9.6 8  13 11.4  11.4 13  8 9.6  4.6 13  3 11.4  6.4 8"},
    {"reply", kViolet, "1 7  7 2  7 5  11 5  14.6 8  15 13  12.4 10  10 9  7 9  7 12"},
    {"forward", kInk, "15 7  9 2  9 5  5 5  1.4 8  1 13  3.6 10  6 9  9 9  9 12"},
    {"print", kGrey, "1 6  15 6  15 12  1 12"},
    {"print", kGrey, "3.4 1.4  12.6 1.4  12.6 6.4  3.4 6.4"},
    {"print", kPaper, "4.2 2.2  11.8 2.2  11.8 6.2  4.2 6.2"},
    {"print", kGrey, "3.4 9.6  12.6 9.6  12.6 14.6  3.4 14.6"},
    {"print", kPaper, "4.2 10.4  11.8 10.4  11.8 13.8  4.2 13.8"},
    {"print", kGreen, "11.5 7.4  13.5 7.4  13.5 8.8  11.5 8.8"},
    {"find", kGrey, "9 10.6  10.6 9  15 13.4  13.4 15"},
    {"find", kInk, "6.5 1  10.4 2.6  12 6.5  10.4 10.4  6.5 12  2.6 10.4  1 6.5  2.6 2.6"},
    {"find", kGlass, "6.5 2.6  9.2 3.8  10.4 6.5  9.2 9.2  6.5 10.4  3.8 9.2  2.6 6.5  3.8 3.8"},
    {"receive", kGreen, "1 5  9 5  9 2  15 6  9 10  9 7  1 7"},
    {"receive", kInk, "15 10  7 10  7 7.6  1 11.4  7 15.2  7 12.6  15 12.6"},
    {"folder", kGold, "1 3  6 3  7.4 5  15 5  15 13  1 13"},
    {"folder", kCream, "1 6.4  15 6.4  15 13  1 13"},
};

}  // namespace

void DrawGlyph(CCanvas& canvas, const Rect& rect, std::string_view name) {
  const double unit = std::min(rect.width, rect.height) / 16.0;
  const double left = rect.x + rect.width / 2.0 - 8 * unit;
  const double top = rect.y + rect.height / 2.0 - 8 * unit;
  for (const Shape& shape : kShapes) {
    if (shape.glyph != name) continue;
    std::istringstream text(shape.corners);
    std::vector<Point> corners;
    for (Point corner; text >> corner.x >> corner.y;)
      corners.push_back({left + corner.x * unit, top + corner.y * unit});
    canvas.Polygon(corners, shape.colour);
  }
}

const char* GlyphOf(Module module) noexcept {
  constexpr const char* kNames[] = {"mail", "calendar", "contact", "task", "note", "journal"};
  return kNames[static_cast<size_t>(module)];
}

void DrawArrowDown(CCanvas& canvas, const Rect& rect, Colour colour) {
  const double x = rect.x + rect.width / 2.0;
  const double y = rect.y + rect.height / 2.0;
  canvas.Polygon({{x - 3.5, y - 1.8}, {x + 3.5, y - 1.8}, {x, y + 2.2}}, colour);
}

void DrawArrowRight(CCanvas& canvas, const Rect& rect, Colour colour) {
  const double x = rect.x + rect.width / 2.0;
  const double y = rect.y + rect.height / 2.0;
  canvas.Polygon({{x - 1.8, y - 3.5}, {x - 1.8, y + 3.5}, {x + 2.2, y}}, colour);
}

}  // namespace quor::workbench
