#ifndef QUOR_WORKBENCH_UI_CANVAS_H
#define QUOR_WORKBENCH_UI_CANVAS_H

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ui/face.h"
#include "workbench/ui/gdi_plus.h"

namespace quor::workbench {

// In pixels at 100 %; the canvas scales.
struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int Right() const noexcept { return x + width; }
  int Bottom() const noexcept { return y + height; }
  bool Contains(int px, int py) const noexcept {
    return px >= x && px < Right() && py >= y && py < Bottom();
  }
  Rect Inset(int by) const noexcept { return {x + by, y + by, width - 2 * by, height - 2 * by}; }
};

using Colour = uint32_t;  // 0xRRGGBB

enum class Align { Left, Centre, Right };

struct TextStyle {
  int size = 12;  // height of the letters' cell in pixels at 100 %
  Colour colour = 0x000000;
  bool bold = false;
  Align align = Align::Left;
  bool wrapped = false;  // several lines, from the top; otherwise one, vertically centred
};

struct Point {
  double x = 0;
  double y = 0;
};

// A 32-bit bitmap in memory, drawn with GDI+; works without a screen.
class CCanvas {
 public:
  CCanvas(int width, int height, int scale);  // pixels at 100 %; scale in per cent

  void CopyTo(HDC context);
  void Save(const std::wstring& path);  // as PNG; throws std::runtime_error

  void Fill(const Rect& rect, Colour colour);
  void Gradient(const Rect& rect, Colour top, Colour bottom);
  void Frame(const Rect& rect, Colour colour);
  void Shade(const Rect& rect, Colour colour, int alpha);  // alpha 0 to 255
  void Line(int x1, int y1, int x2, int y2,
            Colour colour);  // horizontal or vertical, one pixel wide
  void Rounded(const Rect& rect, int radius, Colour fill);
  void RoundedFrame(const Rect& rect, int radius, Colour fill, Colour border);
  void Polygon(const std::vector<Point>& points, Colour colour);
  void Disc(Point centre, double radius, Colour colour);
  // Cut with an ellipsis.
  void Text(const Rect& rect, std::wstring_view text, const TextStyle& style);
  int TextWidth(std::wstring_view text, const TextStyle& style);  // pixels at 100 %, rounded up
  // Fits the picture into the centre of the rectangle; `greyed`: as in a disabled control.
  void Image(const Rect& rect, const Pixels& pixels, bool greyed);

 private:
  void FillPath(const Gdiplus::GraphicsPath& path, Colour colour);
  const Gdiplus::Font& Font(const TextStyle& style);

  const CGdiPlus m_gdiPlus;
  Gdiplus::Bitmap m_bitmap;
  Gdiplus::Graphics m_graphics;
  const int m_scale;
  std::wstring m_fontName;
  std::map<std::pair<int, bool>, std::unique_ptr<Gdiplus::Font>> m_fonts;
};

}  // namespace quor::workbench

#endif
