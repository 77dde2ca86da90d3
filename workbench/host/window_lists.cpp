#include "workbench/host/window_lists.h"

namespace quor::workbench {

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

}  // namespace

std::vector<HWND> ThreadWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::vector<HWND> DescendantsOf(HWND window) {
  std::vector<HWND> windows;
  EnumChildWindows(window, Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

HMODULE CreatorOf(HWND window) {
  return reinterpret_cast<HMODULE>(GetWindowLongPtrW(window, GWLP_HINSTANCE));
}

}  // namespace quor::workbench
