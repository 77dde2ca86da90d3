#include "workbench/host/screenshot.h"

#include <cstddef>
#include <memory>
#include <vector>

#include "workbench/host/window_lists.h"
#include "workbench/office/value.h"
#include "workbench/ui/gdi_plus.h"

namespace quor::workbench {

namespace {

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

// The display maps windows asynchronously and loses what was drawn before, so draw until nothing
// changes. Handles only messages of the display.
HBITMAP CopySettledScreen() {
  constexpr int kMostTries = 40;
  constexpr int kSettledAfter = 5;  // tries without a change
  constexpr DWORD kInterval = 100;  // milliseconds
  constexpr UINT kAll =
      RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW | RDW_ERASENOW;
  HBITMAP bitmap = CopyScreen();
  int unchanged = 0;
  for (int tries = 0; tries < kMostTries && unchanged < kSettledAfter; ++tries) {
    for (const HWND window : ThreadWindows()) {
      if (IsWindowVisible(window)) RedrawWindow(window, nullptr, nullptr, kAll);
    }
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

// Where the window and the pop-ups that it owns are on the screen.
RECT AreaOf(HWND window) {
  RECT whole = {};
  GetWindowRect(window, &whole);
  for (const HWND popUp : ThreadWindows()) {
    RECT area = {};
    const bool shown = GetWindow(popUp, GW_OWNER) == window && IsWindowVisible(popUp);
    if (shown && GetWindowRect(popUp, &area)) UnionRect(&whole, &whole, &area);
  }
  const RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  IntersectRect(&whole, &whole, &screen);
  return whole;
}

}  // namespace

bool HasScreen() {
  wchar_t driver[32] = {};
  DWORD size = sizeof(driver);
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\Wine\\Drivers", L"Graphics", RRF_RT_REG_SZ, nullptr,
               driver, &size);
  return lstrcmpiW(driver, L"null") != 0;
}

std::string SaveScreenshot(const std::string& path, HWND window) {
  if (!HasScreen()) return {};
  const HBITMAP bitmap = CopySettledScreen();
  const CGdiPlus gdiPlus;
  Gdiplus::Bitmap picture(bitmap, nullptr);
  DeleteObject(bitmap);
  if (window == nullptr) {
    SavePng(picture, WideFromUtf8(path));
    return path;
  }
  const RECT area = AreaOf(window);
  const std::unique_ptr<Gdiplus::Bitmap> part(
      picture.Clone(static_cast<int>(area.left), static_cast<int>(area.top),
                    static_cast<int>(area.right - area.left),
                    static_cast<int>(area.bottom - area.top), PixelFormat32bppRGB));
  SavePng(*part, WideFromUtf8(path));
  return path;
}

}  // namespace quor::workbench
