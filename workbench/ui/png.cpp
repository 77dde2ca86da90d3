#include <stdexcept>

#include "workbench/ui/canvas.h"

// gdiplus.h requires ole2.h, and min and max unqualified.
#include <ole2.h>

#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace quor::workbench {
namespace {

constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

class CGdiPlus {
 public:
  CGdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&m_token, &input, nullptr) != Gdiplus::Ok) {
      throw std::runtime_error("GDI+ does not start");
    }
  }
  ~CGdiPlus() { Gdiplus::GdiplusShutdown(m_token); }
  CGdiPlus(const CGdiPlus&) = delete;
  CGdiPlus& operator=(const CGdiPlus&) = delete;

 private:
  ULONG_PTR m_token = 0;
};

}  // namespace

void SavePng(const CCanvas& canvas, const std::wstring& path) {
  GdiFlush();
  const CGdiPlus gdiPlus;
  Gdiplus::Bitmap bitmap(canvas.PixelWidth(), canvas.PixelHeight(), canvas.PixelWidth() * 4,
                         PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(const_cast<uint32_t*>(canvas.Bits())));
  if (bitmap.Save(path.c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok) {
    throw std::runtime_error("the picture cannot be written");
  }
}

}  // namespace quor::workbench
