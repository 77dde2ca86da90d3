#ifndef QUOR_WORKBENCH_UI_GDI_PLUS_H
#define QUOR_WORKBENCH_UI_GDI_PLUS_H

// gdiplus.h requires objidl.h, and min and max unqualified.
// clang-format off
#include <windows.h>
#include <objidl.h>
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>
// clang-format on

#include <string>

namespace quor::workbench {

// Keeps GDI+ started; objects of GDI+ must be destroyed before it.
class CGdiPlus {
 public:
  CGdiPlus();  // throws std::runtime_error
  ~CGdiPlus() { Gdiplus::GdiplusShutdown(m_token); }
  CGdiPlus(const CGdiPlus&) = delete;
  CGdiPlus& operator=(const CGdiPlus&) = delete;

 private:
  ULONG_PTR m_token = 0;
};

// Throws std::runtime_error if the file cannot be written.
void SavePng(Gdiplus::Bitmap& bitmap, const std::wstring& path);

}  // namespace quor::workbench

#endif
