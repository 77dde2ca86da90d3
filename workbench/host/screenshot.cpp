#include "workbench/host/screenshot.h"

// clang-format off
#include <windows.h>
#include <objidl.h>
#include <algorithm>
// GDI+ uses min and max unqualified, and NOMINMAX has removed the macros.
namespace Gdiplus { using std::max; using std::min; }
#include <gdiplus.h>
// clang-format on

#include <cstddef>
#include <memory>
#include <vector>

#include "workbench/office/value.h"

namespace quor::workbench {

namespace {

constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

// Wine without a display has no screen.
bool HasScreen() {
  wchar_t driver[32] = {};
  DWORD size = sizeof(driver);
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\Wine\\Drivers", L"Graphics", RRF_RT_REG_SZ, nullptr,
               driver, &size);
  return lstrcmpiW(driver, L"null") != 0;
}

HBITMAP CopyScreen() {
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

std::vector<std::byte> PixelsOf(HBITMAP bitmap) {
  BITMAP description = {};
  GetObjectW(bitmap, sizeof(description), &description);
  std::vector<std::byte> pixels(static_cast<size_t>(description.bmWidthBytes) *
                                static_cast<size_t>(description.bmHeight));
  GetBitmapBits(bitmap, static_cast<LONG>(pixels.size()), pixels.data());
  return pixels;
}

BOOL CALLBACK Repaint(HWND window, LPARAM) {
  constexpr UINT kAll =
      RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW | RDW_ERASENOW;
  if (IsWindowVisible(window)) RedrawWindow(window, nullptr, nullptr, kAll);
  return TRUE;
}

// The display maps windows asynchronously and loses what was drawn before, so draw until nothing
// changes. Handles only messages of the display.
HBITMAP CopySettledScreen() {
  constexpr int kMostTries = 40;
  constexpr int kSettledAfter = 5;  // tries without a change
  constexpr DWORD kInterval = 100;  // milliseconds
  HBITMAP bitmap = CopyScreen();
  int unchanged = 0;
  for (int tries = 0; tries < kMostTries && unchanged < kSettledAfter; ++tries) {
    EnumThreadWindows(GetCurrentThreadId(), Repaint, 0);
    // Drawing reaches the screen when the program checks for messages.
    MSG message;
    PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_NOREMOVE | PM_QS_PAINT);
    Sleep(kInterval);
    const HBITMAP next = CopyScreen();
    unchanged = PixelsOf(bitmap) == PixelsOf(next) ? unchanged + 1 : 0;
    DeleteObject(bitmap);
    bitmap = next;
  }
  return bitmap;
}

bool SavePng(HBITMAP bitmap, const std::wstring& path) {
  ULONG_PTR token = 0;
  const Gdiplus::GdiplusStartupInput input;
  if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
  auto picture = std::make_unique<Gdiplus::Bitmap>(bitmap, nullptr);
  const bool saved = picture->Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
  picture.reset();  // before GDI+ ends
  Gdiplus::GdiplusShutdown(token);
  return saved;
}

}  // namespace

std::string SaveScreenshot(const std::string& path) {
  if (!HasScreen()) return {};
  const HBITMAP bitmap = CopySettledScreen();
  const bool saved = SavePng(bitmap, WideFromUtf8(path));
  DeleteObject(bitmap);
  return saved ? path : std::string();
}

}  // namespace quor::workbench
