#include "dialogs/key_guard.h"

namespace quor {
namespace {

constexpr LPARAM kWasDown = LPARAM{1} << 30;

KeyStroke StrokeOf(UINT message) noexcept {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      return KeyStroke::Down;
    case WM_KEYUP:
    case WM_SYSKEYUP:
      return KeyStroke::Up;
    default:
      return KeyStroke::Character;
  }
}

}  // namespace

void CKeyGuard::Attach(HWND dialog) noexcept {
  // If there is no memory for a watch, the message hook still filters keys.
  WatchWindow(dialog, *this);
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    WatchWindow(child, *this);
  }
}

std::optional<LRESULT> CKeyGuard::OnMessage(HWND, UINT message, WPARAM wparam,
                                            LPARAM lparam) noexcept {
  if (message < WM_KEYFIRST || message > WM_KEYLAST ||
      Admits(message, wparam, lparam, GetTickCount())) {
    return std::nullopt;
  }
  return 0;
}

bool CKeyGuard::Admits(UINT message, WPARAM wparam, LPARAM lparam, DWORD time) noexcept {
  return m_quiet.Admits(StrokeOf(message), static_cast<uint8_t>(wparam), (lparam & kWasDown) != 0,
                        time);
}

}  // namespace quor
