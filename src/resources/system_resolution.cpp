#include "resources/system_resolution.h"

#include <windows.h>

namespace quor {

int SystemDotsPerInch() noexcept {
  const HDC screen = GetDC(nullptr);
  const int dots = screen != nullptr ? GetDeviceCaps(screen, LOGPIXELSY) : 0;
  if (screen != nullptr) ReleaseDC(nullptr, screen);
  return dots > 0 ? dots : USER_DEFAULT_SCREEN_DPI;
}

}  // namespace quor
