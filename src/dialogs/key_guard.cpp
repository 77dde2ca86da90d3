#include "dialogs/key_guard.h"

#include "module/module.h"

namespace quor {
namespace {

constexpr wchar_t kGuard[] = L"QuorTelephoneToolbarKeyGuard";
constexpr wchar_t kProcedure[] = L"QuorTelephoneToolbarKeyGuardProcedure";

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
  Watch(dialog);
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    Watch(child);
  }
}

void CKeyGuard::Watch(HWND window) noexcept {
  const LONG_PTR procedure = GetWindowLongPtrW(window, GWLP_WNDPROC);
  // If there is no memory for the property, the message hook still filters keys.
  if (!SetPropW(window, kGuard, this)) return;
  if (!SetPropW(window, kProcedure, reinterpret_cast<HANDLE>(procedure))) {
    RemovePropW(window, kGuard);
    return;
  }
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

LRESULT CALLBACK CKeyGuard::Procedure(HWND window, UINT message, WPARAM wparam,
                                      LPARAM lparam) noexcept {
  // The call may destroy the add-in and the guard; this code must stay loaded.
  const CModuleLock loaded;
  auto* guard = static_cast<CKeyGuard*>(GetPropW(window, kGuard));
  const auto procedure = reinterpret_cast<WNDPROC>(GetPropW(window, kProcedure));
  if (message == WM_NCDESTROY) {
    RemovePropW(window, kGuard);
    RemovePropW(window, kProcedure);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
  } else if (message >= WM_KEYFIRST && message <= WM_KEYLAST &&
             !guard->Admits(message, wparam, lparam, GetTickCount())) {
    return 0;
  }
  return CallWindowProcW(procedure, window, message, wparam, lparam);
}

bool CKeyGuard::Admits(UINT message, WPARAM wparam, LPARAM lparam, DWORD time) noexcept {
  return m_quiet.Admits(StrokeOf(message), static_cast<uint8_t>(wparam), (lparam & kWasDown) != 0,
                        time);
}

}  // namespace quor
