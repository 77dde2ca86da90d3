#include "workbench/ui/glyphs.h"

#include <algorithm>
#include <span>

namespace quor::workbench {
namespace {

// A shape on a grid of 16 by 16.
struct Shape {
  Colour colour;
  std::vector<Point> points;
};

constexpr Colour kInk = 0x3B6EA5;
constexpr Colour kPaper = 0xFDFDFD;
constexpr Colour kGold = 0xE8B339;
constexpr Colour kRed = 0xC8372D;
constexpr Colour kGreen = 0x3E9B4F;
constexpr Colour kViolet = 0x8A4FA8;
constexpr Colour kGrey = 0x6B7480;
constexpr Colour kSkin = 0xE3A878;

std::vector<Point> Box(double x, double y, double width, double height) {
  return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

std::vector<Shape> Envelope() {
  return {{kInk, Box(1, 3, 14, 10)},
          {kPaper, Box(2, 4, 12, 8)},
          {kInk, {{2, 4}, {8, 9.4}, {14, 4}, {14, 5.4}, {8, 10.8}, {2, 5.4}}}};
}

std::vector<Shape> Sheet(Colour head) {
  return {{kGrey, Box(2, 2, 12, 12)}, {kPaper, Box(3, 3, 10, 10)}, {head, Box(3, 3, 10, 3)}};
}

std::vector<Shape> Calendar() {
  std::vector<Shape> shapes = Sheet(kRed);
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column)
      shapes.push_back({kGrey, Box(4.3 + column * 2.8, 7.4 + row * 2.8, 1.8, 1.8)});
  }
  return shapes;
}

std::vector<Shape> Person() {
  return {{kSkin,
           {{8, 1.8},
            {9.7, 2.3},
            {10.8, 3.6},
            {11, 5},
            {10.4, 6.7},
            {9.2, 7.7},
            {6.8, 7.7},
            {5.6, 6.7},
            {5, 5},
            {5.2, 3.6},
            {6.3, 2.3}}},
          {kGreen, {{2, 14}, {3, 10.4}, {6, 8.8}, {10, 8.8}, {13, 10.4}, {14, 14}}}};
}

std::vector<Shape> Tick() {
  std::vector<Shape> shapes = Sheet(kPaper);
  shapes.push_back(
      {kGreen, {{4.2, 8.6}, {5.6, 7.2}, {7.4, 9.2}, {11.4, 4.2}, {12.6, 5.4}, {7.4, 11.8}}});
  return shapes;
}

std::vector<Shape> Note() {
  return {{kGold, {{2, 2}, {14, 2}, {14, 10}, {10, 14}, {2, 14}}},
          {kPaper, {{10, 14}, {10, 10}, {14, 10}}}};
}

std::vector<Shape> Book() {
  return {{kViolet, Box(3, 2, 10, 12)}, {kPaper, Box(5, 4, 6, 2.4)}, {kGold, Box(3, 2, 1.4, 12)}};
}

std::vector<Shape> NewSheet() {
  std::vector<Shape> shapes = Envelope();
  shapes.push_back(
      {kGold, {{12, 0.4}, {13, 3}, {15.6, 4}, {13, 5}, {12, 7.6}, {11, 5}, {8.4, 4}, {11, 3}}});
  return shapes;
}

std::vector<Shape> Cross() {
  return {{kRed,
           {{3, 4.6},
            {4.6, 3},
            {8, 6.4},
            {11.4, 3},
            {13, 4.6},
            {9.6, 8},
            {13, 11.4},
            {11.4, 13},
            {8, 9.6},
            {4.6, 13},
            {3, 11.4},
            {6.4, 8}}}};
}

std::vector<Shape> Arrow(bool left) {
  std::vector<Point> points = {{1, 7},   {7, 2},     {7, 5},  {11, 5}, {14.6, 8},
                               {15, 13}, {12.4, 10}, {10, 9}, {7, 9},  {7, 12}};
  if (!left) {
    for (Point& point : points)
      point.x = 16 - point.x;
  }
  return {{left ? kViolet : kInk, points}};
}

std::vector<Shape> Printer() {
  return {{kGrey, Box(1, 6, 14, 6)},          {kGrey, Box(3.4, 1.4, 9.2, 5)},
          {kPaper, Box(4.2, 2.2, 7.6, 4)},    {kGrey, Box(3.4, 9.6, 9.2, 5)},
          {kPaper, Box(4.2, 10.4, 7.6, 3.4)}, {kGreen, Box(11.5, 7.4, 2, 1.4)}};
}

std::vector<Shape> Lens() {
  return {{kGrey, {{9, 10.6}, {10.6, 9}, {15, 13.4}, {13.4, 15}}},
          {kInk,
           {{6.5, 1},
            {10.4, 2.6},
            {12, 6.5},
            {10.4, 10.4},
            {6.5, 12},
            {2.6, 10.4},
            {1, 6.5},
            {2.6, 2.6}}},
          {0xD6E9F8,
           {{6.5, 2.6},
            {9.2, 3.8},
            {10.4, 6.5},
            {9.2, 9.2},
            {6.5, 10.4},
            {3.8, 9.2},
            {2.6, 6.5},
            {3.8, 3.8}}}};
}

std::vector<Shape> Exchange() {
  return {{kGreen, {{1, 5}, {9, 5}, {9, 2}, {15, 6}, {9, 10}, {9, 7}, {1, 7}}},
          {kInk, {{15, 10}, {7, 10}, {7, 7.6}, {1, 11.4}, {7, 15.2}, {7, 12.6}, {15, 12.6}}}};
}

std::vector<Shape> Folder() {
  return {{kGold, {{1, 3}, {6, 3}, {7.4, 5}, {15, 5}, {15, 13}, {1, 13}}},
          {0xF7DE9A, Box(1, 6.4, 14, 6.6)}};
}

std::vector<Shape> ShapesOf(std::string_view name) {
  if (name == "mail") return Envelope();
  if (name == "calendar") return Calendar();
  if (name == "contact") return Person();
  if (name == "task") return Tick();
  if (name == "note") return Note();
  if (name == "journal") return Book();
  if (name == "new") return NewSheet();
  if (name == "delete") return Cross();
  if (name == "reply") return Arrow(true);
  if (name == "forward") return Arrow(false);
  if (name == "print") return Printer();
  if (name == "find") return Lens();
  if (name == "receive") return Exchange();
  if (name == "folder") return Folder();
  return {};
}

}  // namespace

void DrawGlyph(CCanvas& canvas, const Rect& rect, std::string_view name) {
  const int side = std::min(rect.width, rect.height);
  const double left = rect.x + (rect.width - side) / 2.0;
  const double top = rect.y + (rect.height - side) / 2.0;
  const double unit = side / 16.0;
  for (Shape& shape : ShapesOf(name)) {
    for (Point& point : shape.points)
      point = {left + point.x * unit, top + point.y * unit};
    canvas.Polygon(shape.points, shape.colour);
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
