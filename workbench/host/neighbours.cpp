#include "workbench/host/neighbours.h"

#include <utility>

#include "workbench/host/window_lists.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

// Leaves its update region invalid, so that WM_PAINT never stops.
LRESULT CALLBACK NeverValidate(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return message == WM_PAINT ? 0 : DefWindowProcW(window, message, wParam, lParam);
}

// Paints, then invalidates itself again.
LRESULT CALLBACK InvalidateAgain(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_PAINT) return DefWindowProcW(window, message, wParam, lParam);
  PAINTSTRUCT paint;
  BeginPaint(window, &paint);
  InvalidateRect(window, nullptr, FALSE);
  EndPaint(window, &paint);
  InvalidateRect(window, nullptr, FALSE);
  return 0;
}

// Examines the message queue while the hook is called for a message.
LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
  static bool inside = false;
  if (code == HC_ACTION && !std::exchange(inside, true)) {
    MSG next;
    PeekMessageW(&next, nullptr, 0, 0, PM_NOREMOVE);
    inside = false;
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void CNeighbours::MoveIn(Neighbour neighbour) {
  switch (neighbour) {
    case Neighbour::NeverValidates:
      return AddWindow(NeverValidate, L"quor neighbour that never validates");
    case Neighbour::InvalidatesAgain:
      return AddWindow(InvalidateAgain, L"quor neighbour that invalidates again");
    case Neighbour::MessageHook:
      if (!m_hook) {
        m_hook = SetWindowsHookExW(WH_GETMESSAGE, OnMessage, nullptr, GetCurrentThreadId());
      }
      return;
    case Neighbour::ClosesWindows:
      for (const HWND window : ThreadWindows()) {
        if (CreatorOf(window) != GetModuleHandleW(nullptr)) PostMessageW(window, WM_CLOSE, 0, 0);
      }
      return;
    case Neighbour::ModalLoop:
      return RunModalLoop();
  }
}

void CNeighbours::AddWindow(WNDPROC procedure, const wchar_t* className) {
  constexpr int kSize = 20;
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = className;
  RegisterClassW(&windowClass);
  const HWND window =
      CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, className, L"", WS_POPUP | WS_VISIBLE, 0,
                      0, kSize, kSize, nullptr, nullptr, windowClass.hInstance, nullptr);
  if (!window) throw CScenarioError("no window for the neighbour");
  m_windows.push_back(window);
}

void CNeighbours::RunModalLoop() {
  m_modal = true;
  MSG message;
  while (m_modal && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void CNeighbours::Leave() {
  m_modal = false;
  if (m_hook) UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
  for (const HWND window : std::exchange(m_windows, {}))
    DestroyWindow(window);
}

}  // namespace quor::workbench
