#ifndef QUOR_WORKBENCH_UI_CANVAS_H
#define QUOR_WORKBENCH_UI_CANVAS_H

#include <windows.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ui/face.h"

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
};

struct Point {
  double x = 0;
  double y = 0;
};

// A 32-bit bitmap with a device context. Throws std::runtime_error if it cannot be created.
class CMemoryBitmap {
 public:
  CMemoryBitmap(int width, int height);
  ~CMemoryBitmap();
  CMemoryBitmap(const CMemoryBitmap&) = delete;
  CMemoryBitmap& operator=(const CMemoryBitmap&) = delete;

  HDC Context() const noexcept { return m_context; }
  uint32_t* Bits() const noexcept { return m_bits; }
  // Average brightness of the pixels that are scaled down to pixel x, y: 0 to 255.
  int Coverage(int x, int y) const noexcept;

 private:
  const int m_width;
  HDC m_context = nullptr;
  HBITMAP m_bitmap = nullptr;
  HGDIOBJ m_before = nullptr;
  uint32_t* m_bits = nullptr;
};

// A 32-bit bitmap in memory. Shapes are drawn with smooth edges, text by GDI; works without a
// screen.
class CCanvas {
 public:
  CCanvas(int width, int height, int scale);  // pixels at 100 %; scale in per cent
  ~CCanvas();
  CCanvas(const CCanvas&) = delete;
  CCanvas& operator=(const CCanvas&) = delete;

  int Scale() const noexcept { return m_scale; }
  HDC Context() const noexcept { return m_bitmap.Context(); }
  // Real pixels.
  int PixelWidth() const noexcept { return m_width; }
  int PixelHeight() const noexcept { return m_height; }
  const uint32_t* Bits() const noexcept { return m_bitmap.Bits(); }

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
  // One line, cut with an ellipsis, vertically centred.
  void Text(const Rect& rect, std::wstring_view text, const TextStyle& style);
  int TextWidth(std::wstring_view text, const TextStyle& style);  // pixels at 100 %, rounded up
  // Fits the picture into the centre of the rectangle; `greyed`: as in a disabled control.
  void Image(const Rect& rect, const Pixels& pixels, bool greyed);

 private:
  int Scaled(int value) const noexcept { return value * m_scale / 100; }
  RECT Scaled(const Rect& rect) const noexcept;
  void Blend(int x, int y, Colour colour, int alpha) noexcept;
  HFONT Font(const TextStyle& style);

  const int m_scale;
  const int m_width;
  const int m_height;
  CMemoryBitmap m_bitmap;
  std::wstring m_fontName;
  std::map<std::pair<int, bool>, HFONT> m_fonts;
};

// Throws std::runtime_error if the file cannot be written.
void SavePng(const CCanvas& canvas, const std::wstring& path);

}  // namespace quor::workbench

#endif
