#include "workbench/ui/canvas.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quor::workbench {
namespace {

constexpr int kSamples = 4;  // in each direction, for smooth edges

uint32_t Mixed(uint32_t under, Colour over, int alpha) noexcept {
  const auto channel = [&](int shift) {
    const int low = static_cast<int>((under >> shift) & 0xFF);
    const int high = static_cast<int>((over >> shift) & 0xFF);
    return static_cast<uint32_t>(low + (high - low) * alpha / 255) << shift;
  };
  return channel(16) | channel(8) | channel(0);
}

int CALLBACK FoundFont(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

// The first of the interface fonts that this machine has.
std::wstring InterfaceFont(HDC context) {
  for (const wchar_t* name : {L"Segoe UI", L"Liberation Sans", L"Tahoma", L"DejaVu Sans"}) {
    LOGFONTW wanted = {};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(wanted.lfFaceName, name, LF_FACESIZE);
    bool found = false;
    EnumFontFamiliesExW(context, &wanted, &FoundFont, reinterpret_cast<LPARAM>(&found), 0);
    if (found) return name;
  }
  return L"MS Shell Dlg";
}

bool IsInside(const std::vector<Point>& points, double x, double y) noexcept {
  bool inside = false;
  for (size_t i = 0, j = points.size() - 1; i < points.size(); j = i++) {
    const Point& a = points[i];
    const Point& b = points[j];
    if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x) {
      inside = !inside;
    }
  }
  return inside;
}

// The part of the pixel that a shape covers, 0 to 255.
template <class Inside>
int Coverage(int x, int y, const Inside& inside) noexcept {
  int hits = 0;
  for (int i = 0; i < kSamples * kSamples; ++i) {
    const double sx = x + (i % kSamples + 0.5) / kSamples;
    const double sy = y + (i / kSamples + 0.5) / kSamples;
    if (inside(sx, sy)) ++hits;
  }
  return hits * 255 / (kSamples * kSamples);
}

uint32_t Greyed(uint32_t colour) noexcept {
  const uint32_t alpha = colour >> 24;
  const uint32_t grey =
      (((colour >> 16) & 0xFF) * 30 + ((colour >> 8) & 0xFF) * 59 + (colour & 0xFF) * 11) / 100;
  // Mixes the colour half and half with light grey and halves the opacity.
  const uint32_t light = (grey + alpha * 160 / 255) / 4;
  return (alpha / 2) << 24 | light << 16 | light << 8 | light;
}

// The average of the source pixels under one target pixel, or an interpolated colour when
// enlarging.
uint32_t Sample(const Pixels& pixels, double left, double top, double right, double bottom) {
  double sums[4] = {};
  double weight = 0;
  const int x1 = std::min(pixels.width, static_cast<int>(std::ceil(right)));
  const int y1 = std::min(pixels.height, static_cast<int>(std::ceil(bottom)));
  for (int y = std::max(0, static_cast<int>(top)); y < y1; ++y) {
    const double high = std::min<double>(bottom, y + 1) - std::max<double>(top, y);
    for (int x = std::max(0, static_cast<int>(left)); x < x1; ++x) {
      const double part = high * (std::min<double>(right, x + 1) - std::max<double>(left, x));
      const uint32_t colour = pixels.colours[static_cast<size_t>(y * pixels.width + x)];
      for (int channel = 0; channel < 4; ++channel)
        sums[channel] += part * ((colour >> (8 * channel)) & 0xFF);
      weight += part;
    }
  }
  if (weight <= 0) return 0;
  uint32_t result = 0;
  for (int channel = 0; channel < 4; ++channel)
    result |= static_cast<uint32_t>(sums[channel] / weight + 0.5) << (8 * channel);
  return result;
}

}  // namespace

CMemoryBitmap::CMemoryBitmap(int width, int height) : m_width(width) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  m_context = CreateCompatibleDC(nullptr);
  void* bits = nullptr;
  m_bitmap = CreateDIBSection(m_context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (m_bitmap == nullptr) {
    DeleteDC(m_context);
    throw std::runtime_error("no bitmap to draw into");
  }
  m_bits = static_cast<uint32_t*>(bits);
  m_before = SelectObject(m_context, m_bitmap);
  SetBkMode(m_context, TRANSPARENT);
}

CMemoryBitmap::~CMemoryBitmap() {
  SelectObject(m_context, GetStockObject(SYSTEM_FONT));
  SelectObject(m_context, m_before);
  DeleteObject(m_bitmap);
  DeleteDC(m_context);
}

int CMemoryBitmap::Coverage(int x, int y) const noexcept {
  int sum = 0;
  for (int row = 0; row < kSamples; ++row) {
    const uint32_t* line =
        m_bits + static_cast<size_t>(y * kSamples + row) * static_cast<size_t>(m_width);
    for (int column = 0; column < kSamples; ++column)
      sum += static_cast<int>(line[x * kSamples + column] & 0xFF);
  }
  return sum / (kSamples * kSamples);
}

CCanvas::CCanvas(int width, int height, int scale)
    : m_scale(scale),
      m_width(width * scale / 100),
      m_height(height * scale / 100),
      m_bitmap(m_width, m_height),
      m_fontName(InterfaceFont(m_bitmap.Context())) {}

CCanvas::~CCanvas() {
  SelectObject(m_bitmap.Context(), GetStockObject(SYSTEM_FONT));
  for (const auto& [key, font] : m_fonts)
    DeleteObject(font);
}

RECT CCanvas::Scaled(const Rect& rect) const noexcept {
  return {Scaled(rect.x), Scaled(rect.y), Scaled(rect.Right()), Scaled(rect.Bottom())};
}

void CCanvas::Blend(int x, int y, Colour colour, int alpha) noexcept {
  if (x < 0 || y < 0 || x >= m_width || y >= m_height || alpha <= 0) return;
  uint32_t& pixel =
      m_bitmap
          .Bits()[static_cast<size_t>(y) * static_cast<size_t>(m_width) + static_cast<size_t>(x)];
  pixel = alpha >= 255 ? colour : Mixed(pixel, colour, alpha);
}

void CCanvas::Shade(const Rect& rect, Colour colour, int alpha) {
  GdiFlush();
  const RECT area = Scaled(rect);
  for (int y = static_cast<int>(area.top); y < area.bottom; ++y) {
    for (int x = static_cast<int>(area.left); x < area.right; ++x)
      Blend(x, y, colour, alpha);
  }
}

void CCanvas::Fill(const Rect& rect, Colour colour) {
  Shade(rect, colour, 255);
}

void CCanvas::Gradient(const Rect& rect, Colour top, Colour bottom) {
  GdiFlush();
  const RECT area = Scaled(rect);
  const int height = std::max(1, static_cast<int>(area.bottom - area.top) - 1);
  for (int y = static_cast<int>(area.top); y < area.bottom; ++y) {
    const Colour colour = Mixed(top, bottom, (y - static_cast<int>(area.top)) * 255 / height);
    for (int x = static_cast<int>(area.left); x < area.right; ++x)
      Blend(x, y, colour, 255);
  }
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

void CCanvas::Rounded(const Rect& rect, int radius, Colour fill) {
  GdiFlush();
  const RECT area = Scaled(rect);
  const double r = Scaled(radius);
  const double left = area.left + r;
  const double right = area.right - r;
  const double top = area.top + r;
  const double bottom = area.bottom - r;
  const auto inside = [&](double x, double y) {
    const double dx = x - std::clamp(x, left, std::max(left, right));
    const double dy = y - std::clamp(y, top, std::max(top, bottom));
    return dx * dx + dy * dy <= r * r;
  };
  for (int y = static_cast<int>(area.top); y < area.bottom; ++y) {
    const bool straight = y >= top && y + 1 <= bottom;
    for (int x = static_cast<int>(area.left); x < area.right; ++x) {
      const bool full = straight || (x >= left && x + 1 <= right);
      Blend(x, y, fill, full ? 255 : Coverage(x, y, inside));
    }
  }
}

void CCanvas::RoundedFrame(const Rect& rect, int radius, Colour fill, Colour border) {
  Rounded(rect, radius, border);
  Rounded(rect.Inset(1), std::max(0, radius - 1), fill);
}

void CCanvas::Polygon(const std::vector<Point>& points, Colour colour) {
  if (points.size() < 3) return;
  GdiFlush();
  std::vector<Point> scaled = points;
  double left = 1e9;
  double right = -1e9;
  double top = 1e9;
  double bottom = -1e9;
  for (Point& point : scaled) {
    point = {point.x * m_scale / 100, point.y * m_scale / 100};
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    top = std::min(top, point.y);
    bottom = std::max(bottom, point.y);
  }
  const auto inside = [&scaled](double x, double y) { return IsInside(scaled, x, y); };
  for (int y = static_cast<int>(top); y <= static_cast<int>(bottom); ++y) {
    for (int x = static_cast<int>(left); x <= static_cast<int>(right); ++x)
      Blend(x, y, colour, Coverage(x, y, inside));
  }
}

void CCanvas::Disc(Point centre, double radius, Colour colour) {
  GdiFlush();
  const double cx = centre.x * m_scale / 100;
  const double cy = centre.y * m_scale / 100;
  const double r = radius * m_scale / 100;
  const auto inside = [&](double x, double y) {
    return (x - cx) * (x - cx) + (y - cy) * (y - cy) <= r * r;
  };
  for (int y = static_cast<int>(cy - r); y <= static_cast<int>(cy + r); ++y) {
    for (int x = static_cast<int>(cx - r); x <= static_cast<int>(cx + r); ++x)
      Blend(x, y, colour, Coverage(x, y, inside));
  }
}

HFONT CCanvas::Font(const TextStyle& style) {
  HFONT& font = m_fonts[{style.size, style.bold}];
  if (font == nullptr) {
    font = CreateFontW(-Scaled(style.size) * kSamples, 0, 0, 0, style.bold ? FW_BOLD : FW_NORMAL,
                       FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH, m_fontName.c_str());
  }
  return font;
}

// GDI draws small letters without smooth edges if the font says so. So text is drawn several times
// larger in a second bitmap and scaled down.
void CCanvas::Text(const Rect& rect, std::wstring_view text, const TextStyle& style) {
  const RECT area = Scaled(rect);
  const int width = static_cast<int>(area.right - area.left);
  const int height = static_cast<int>(area.bottom - area.top);
  if (text.empty() || width <= 0 || height <= 0) return;
  CMemoryBitmap large(width * kSamples, height * kSamples);
  SelectObject(large.Context(), Font(style));
  SetTextColor(large.Context(), RGB(255, 255, 255));
  UINT flags = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  if (style.align == Align::Centre) flags |= DT_CENTER;
  if (style.align == Align::Right) flags |= DT_RIGHT;
  RECT whole = {0, 0, width * kSamples, height * kSamples};
  DrawTextW(large.Context(), text.data(), static_cast<int>(text.size()), &whole, flags);
  GdiFlush();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      Blend(static_cast<int>(area.left) + x, static_cast<int>(area.top) + y, style.colour,
            large.Coverage(x, y));
    }
  }
}

int CCanvas::TextWidth(std::wstring_view text, const TextStyle& style) {
  SelectObject(m_bitmap.Context(), Font(style));
  SIZE size = {};
  GetTextExtentPoint32W(m_bitmap.Context(), text.data(), static_cast<int>(text.size()), &size);
  const int unit = m_scale * kSamples;
  return (static_cast<int>(size.cx) * 100 + unit - 1) / unit;
}

void CCanvas::Image(const Rect& rect, const Pixels& pixels, bool greyed) {
  if (pixels.width <= 0 || pixels.height <= 0) return;
  GdiFlush();
  const RECT area = Scaled(rect);
  const int side = static_cast<int>(std::min(area.right - area.left, area.bottom - area.top));
  const int left = static_cast<int>(area.left + area.right - side) / 2;
  const int top = static_cast<int>(area.top + area.bottom - side) / 2;
  const double stepX = static_cast<double>(pixels.width) / side;
  const double stepY = static_cast<double>(pixels.height) / side;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      uint32_t colour = Sample(pixels, x * stepX, y * stepY, (x + 1) * stepX, (y + 1) * stepY);
      if (greyed) colour = Greyed(colour);
      const int alpha = static_cast<int>(colour >> 24);
      if (alpha == 0) continue;
      // Blend takes a colour without alpha: divide the alpha out again.
      const auto channel = [&](int shift) {
        const uint32_t value = ((colour >> shift) & 0xFF) * 255 / static_cast<uint32_t>(alpha);
        return std::min<uint32_t>(255, value) << shift;
      };
      Blend(left + x, top + y, channel(16) | channel(8) | channel(0), alpha);
    }
  }
}

}  // namespace quor::workbench
