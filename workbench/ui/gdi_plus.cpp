#include "workbench/ui/gdi_plus.h"

#include <stdexcept>

namespace quor::workbench {

CGdiPlus::CGdiPlus() {
  const Gdiplus::GdiplusStartupInput input;
  if (Gdiplus::GdiplusStartup(&m_token, &input, nullptr) != Gdiplus::Ok) {
    throw std::runtime_error("GDI+ does not start");
  }
}

void SavePng(Gdiplus::Bitmap& bitmap, const std::wstring& path) {
  constexpr CLSID kPngEncoder = {
      0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  if (bitmap.Save(path.c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok) {
    throw std::runtime_error("the picture cannot be written");
  }
}

}  // namespace quor::workbench
