#include "dialogs/outlook_window.h"

#include <iterator>
#include <string_view>

namespace quor {
namespace {

constexpr std::wstring_view kOutlookClass = L"rctrl_renwnd32";
constexpr int kLongestClassName = 260;

BOOL CALLBACK KeepOutlookWindow(HWND window, LPARAM found) {
  wchar_t name[kLongestClassName] = {};
  const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
  if (length <= 0 || std::wstring_view(name, static_cast<size_t>(length)) != kOutlookClass) {
    return TRUE;
  }
  HWND& kept = *reinterpret_cast<HWND*>(found);
  const bool visible = IsWindowVisible(window) != FALSE;
  if (visible || kept == nullptr) kept = window;
  return !visible;
}

}  // namespace

HWND FindOutlookWindow() noexcept {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), KeepOutlookWindow, reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace quor
