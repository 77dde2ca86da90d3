#include "workbench/ui/canvas.h"

#include <cmath>

namespace quor::workbench {
namespace {

Gdiplus::Color Solid(Colour colour, int alpha = 255) {
  return {static_cast<BYTE>(alpha), static_cast<BYTE>(colour >> 16), static_cast<BYTE>(colour >> 8),
          static_cast<BYTE>(colour)};
}

// The first of the interface fonts that this machine has.
std::wstring InterfaceFont() {
  for (const wchar_t* name : {L"Segoe UI", L"Liberation Sans", L"Tahoma", L"DejaVu Sans"}) {
    if (Gdiplus::FontFamily(name).IsAvailable()) return name;
  }
  return L"MS Shell Dlg";
}

Gdiplus::Rect Area(const Rect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

// A typographic format adds no space at the ends.
class CLineFormat : public Gdiplus::StringFormat {
 public:
  explicit CLineFormat(Align align, bool wrapped = false)
      : Gdiplus::StringFormat(Gdiplus::StringFormat::GenericTypographic()) {
    SetFormatFlags((wrapped ? 0 : Gdiplus::StringFormatFlagsNoWrap) |
                   Gdiplus::StringFormatFlagsMeasureTrailingSpaces);
    SetTrimming(Gdiplus::StringTrimmingEllipsisCharacter);
    SetLineAlignment(wrapped ? Gdiplus::StringAlignmentNear : Gdiplus::StringAlignmentCenter);
    SetAlignment(align == Align::Left     ? Gdiplus::StringAlignmentNear
                 : align == Align::Centre ? Gdiplus::StringAlignmentCenter
                                          : Gdiplus::StringAlignmentFar);
  }
};

// Converts to grey by brightness, mixes half and half with light grey, and halves the opacity.
constexpr Gdiplus::ColorMatrix kGreyed = {{{0.15F, 0.15F, 0.15F, 0, 0},
                                           {0.295F, 0.295F, 0.295F, 0, 0},
                                           {0.055F, 0.055F, 0.055F, 0, 0},
                                           {0, 0, 0, 0.5F, 0},
                                           {0.31F, 0.31F, 0.31F, 0, 1}}};

}  // namespace

CCanvas::CCanvas(int width, int height, int scale)
    : m_bitmap(width * scale / 100, height * scale / 100, PixelFormat32bppRGB),
      m_graphics(&m_bitmap),
      m_scale(scale),
      m_fontName(InterfaceFont()) {
  m_graphics.ScaleTransform(static_cast<float>(scale) / 100, static_cast<float>(scale) / 100);
  m_graphics.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAlias);
  m_graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  m_graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
}

void CCanvas::CopyTo(HDC context) {
  Gdiplus::Graphics(context).DrawImage(&m_bitmap, 0, 0, static_cast<int>(m_bitmap.GetWidth()),
                                       static_cast<int>(m_bitmap.GetHeight()));
}

void CCanvas::Save(const std::wstring& path) {
  SavePng(m_bitmap, path);
}

void CCanvas::Shade(const Rect& rect, Colour colour, int alpha) {
  m_graphics.SetSmoothingMode(Gdiplus::SmoothingModeNone);
  const Gdiplus::SolidBrush brush(Solid(colour, alpha));
  m_graphics.FillRectangle(&brush, Area(rect));
}

void CCanvas::Fill(const Rect& rect, Colour colour) {
  Shade(rect, colour, 255);
}

void CCanvas::Gradient(const Rect& rect, Colour top, Colour bottom) {
  m_graphics.SetSmoothingMode(Gdiplus::SmoothingModeNone);
  const Gdiplus::LinearGradientBrush brush(Area(rect), Solid(top), Solid(bottom),
                                           Gdiplus::LinearGradientModeVertical);
  m_graphics.FillRectangle(&brush, Area(rect));
}

void CCanvas::Frame(const Rect& rect, Colour colour) {
  Line(rect.x, rect.y, rect.Right(), rect.y, colour);
  Line(rect.x, rect.Bottom() - 1, rect.Right(), rect.Bottom() - 1, colour);
  Line(rect.x, rect.y, rect.x, rect.Bottom(), colour);
  Line(rect.Right() - 1, rect.y, rect.Right() - 1, rect.Bottom(), colour);
}

void CCanvas::Line(int x1, int y1, int x2, int y2, Colour colour) {
  Fill({x1, y1, std::max(1, x2 - x1), std::max(1, y2 - y1)}, colour);
}

void CCanvas::FillPath(const Gdiplus::GraphicsPath& path, Colour colour) {
  m_graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  const Gdiplus::SolidBrush brush(Solid(colour));
  m_graphics.FillPath(&brush, &path);
}

void CCanvas::Rounded(const Rect& rect, int radius, Colour fill) {
  if (radius == 0) {
    Fill(rect, fill);
    return;
  }
  const int side = 2 * radius;
  Gdiplus::GraphicsPath path;
  path.AddArc(rect.x, rect.y, side, side, 180, 90);
  path.AddArc(rect.Right() - side, rect.y, side, side, 270, 90);
  path.AddArc(rect.Right() - side, rect.Bottom() - side, side, side, 0, 90);
  path.AddArc(rect.x, rect.Bottom() - side, side, side, 90, 90);
  path.CloseFigure();
  FillPath(path, fill);
}

void CCanvas::RoundedFrame(const Rect& rect, int radius, Colour fill, Colour border) {
  Rounded(rect, radius, border);
  Rounded(rect.Inset(1), std::max(0, radius - 1), fill);
}

void CCanvas::Polygon(const std::vector<Point>& points, Colour colour) {
  std::vector<Gdiplus::PointF> corners;
  corners.reserve(points.size());
  for (const Point& point : points)
    corners.emplace_back(static_cast<float>(point.x), static_cast<float>(point.y));
  Gdiplus::GraphicsPath path;
  path.AddPolygon(corners.data(), static_cast<int>(corners.size()));
  FillPath(path, colour);
}

void CCanvas::Disc(Point centre, double radius, Colour colour) {
  Gdiplus::GraphicsPath path;
  path.AddEllipse(static_cast<float>(centre.x - radius), static_cast<float>(centre.y - radius),
                  static_cast<float>(2 * radius), static_cast<float>(2 * radius));
  FillPath(path, colour);
}

const Gdiplus::Font& CCanvas::Font(const TextStyle& style) {
  auto& font = m_fonts[{style.size, style.bold}];
  if (font == nullptr) {
    font = std::make_unique<Gdiplus::Font>(
        m_fontName.c_str(), static_cast<float>(style.size),
        style.bold ? Gdiplus::FontStyleBold : Gdiplus::FontStyleRegular, Gdiplus::UnitPixel);
  }
  return *font;
}

void CCanvas::Text(const Rect& rect, std::wstring_view text, const TextStyle& style) {
  const Gdiplus::SolidBrush brush(Solid(style.colour));
  const CLineFormat format(style.align, style.wrapped);
  const Gdiplus::RectF area(static_cast<float>(rect.x), static_cast<float>(rect.y),
                            static_cast<float>(rect.width), static_cast<float>(rect.height));
  m_graphics.DrawString(text.data(), static_cast<int>(text.size()), &Font(style), area, &format,
                        &brush);
}

int CCanvas::TextWidth(std::wstring_view text, const TextStyle& style) {
  const CLineFormat format(Align::Left);
  Gdiplus::RectF bounds;
  m_graphics.MeasureString(text.data(), static_cast<int>(text.size()), &Font(style),
                           Gdiplus::PointF(), &format, &bounds);
  return static_cast<int>(std::ceil(bounds.Width));
}

void CCanvas::Image(const Rect& rect, const Pixels& pixels, bool greyed) {
  if (pixels.width <= 0 || pixels.height <= 0) return;
  auto* bytes = reinterpret_cast<BYTE*>(const_cast<uint32_t*>(pixels.colours.data()));
  Gdiplus::Bitmap image(pixels.width, pixels.height, pixels.width * 4, PixelFormat32bppPARGB,
                        bytes);
  const int side = std::min(rect.width, rect.height);
  const Gdiplus::Rect square((rect.x + rect.Right() - side) / 2,
                             (rect.y + rect.Bottom() - side) / 2, side, side);
  Gdiplus::ImageAttributes attributes;
  attributes.SetWrapMode(Gdiplus::WrapModeTileFlipXY);  // no seam at the edges
  if (greyed) attributes.SetColorMatrix(&kGreyed);
  m_graphics.DrawImage(&image, square, 0, 0, pixels.width, pixels.height, Gdiplus::UnitPixel,
                       &attributes);
}

}  // namespace quor::workbench
