#include "dialogs/focus_return.h"

#include <utility>

namespace quor {
namespace {

bool TakesInput(HWND window) noexcept {
  return window != nullptr && IsWindow(window) && IsWindowVisible(window) &&
         IsWindowEnabled(window) && !IsIconic(window);
}

}  // namespace

void CFocusReturn::Note() noexcept {
  m_foreground = GetForegroundWindow();
  m_focus = GetFocus();
}

void CFocusReturn::Forget() noexcept {
  m_foreground = nullptr;
  m_focus = nullptr;
}

void CFocusReturn::Return(HWND leaving) noexcept {
  const HWND foreground = std::exchange(m_foreground, nullptr);
  const HWND focus = std::exchange(m_focus, nullptr);
  if (GetActiveWindow() != leaving) return;
  if (GetForegroundWindow() == leaving && TakesInput(foreground)) SetForegroundWindow(foreground);
  const HWND owner = GetAncestor(focus, GA_ROOT);
  const HWND active = GetActiveWindow();
  if (TakesInput(focus) && TakesInput(owner) && (active == leaving || active == owner)) {
    SetFocus(focus);
  }
}

}  // namespace quor
