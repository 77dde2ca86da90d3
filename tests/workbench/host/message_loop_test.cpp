#include "workbench/host/message_loop.h"

#include <gtest/gtest.h>

namespace quor::workbench {
namespace {

int s_doubleClicks = 0;

LRESULT CALLBACK CountDoubleClicks(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDBLCLK) ++s_doubleClicks;
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST(MessageLoop, ADoubleClickReachesItsWindow) {
  WNDCLASSEXW description = {};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = CountDoubleClicks;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = L"Double clicks";
  ASSERT_NE(RegisterClassExW(&description), 0);
  HWND window =
      CreateWindowExW(WS_EX_TOPMOST, description.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0,
                      200, 200, nullptr, nullptr, description.hInstance, nullptr);
  ASSERT_NE(window, nullptr);
  CMessageLoop loop;
  loop.Pump();
  SetCursorPos(100, 100);
  INPUT clicks[4] = {};
  for (size_t i = 0; i < 4; ++i) {
    clicks[i].type = INPUT_MOUSE;
    clicks[i].mi.dwFlags = i % 2 == 0 ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
  }
  ASSERT_EQ(SendInput(4, clicks, sizeof clicks[0]), 4u);
  constexpr unsigned kLimit = 5000;  // milliseconds
  EXPECT_TRUE(loop.RunUntil([] { return s_doubleClicks != 0; }, kLimit));
  DestroyWindow(window);
}

}  // namespace
}  // namespace quor::workbench
