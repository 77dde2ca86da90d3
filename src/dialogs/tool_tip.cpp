#include "dialogs/tool_tip.h"

// commctrl.h needs windows.h before it.
#include <commctrl.h>

namespace quor {
namespace {

constexpr LPARAM kLongestTime = 32767;  // milliseconds, the most that the control accepts

// The control's area in its dialog: a static control itself gets no mouse messages.
TTTOOLINFOW ToolOf(HWND control) noexcept {
  TTTOOLINFOW tool = {};
  // The size that every version of the common controls knows.
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = GetParent(control);
  tool.uId = static_cast<UINT_PTR>(GetDlgCtrlID(control));
  GetWindowRect(control, &tool.rect);
  MapWindowPoints(nullptr, tool.hwnd, reinterpret_cast<POINT*>(&tool.rect), 2);
  return tool;
}

}  // namespace

void CToolTip::Attach(HWND control) noexcept {
  m_control = control;
  m_window = nullptr;
}

void CToolTip::SetText(const std::wstring& text) noexcept {
  if (!IsWindow(m_control)) return;
  TTTOOLINFOW tool = ToolOf(m_control);
  const auto toolParameter = reinterpret_cast<LPARAM>(&tool);
  if (m_window != nullptr) SendMessageW(m_window, TTM_DELTOOLW, 0, toolParameter);
  if (text.empty()) return;
  if (m_window == nullptr) {
    m_window =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                        WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, tool.hwnd, nullptr, nullptr, nullptr);
    if (m_window == nullptr) return;
    SendMessageW(m_window, TTM_SETDELAYTIME, TTDT_AUTOPOP, kLongestTime);
  }
  // The control copies the text.
  tool.lpszText = const_cast<wchar_t*>(text.c_str());
  SendMessageW(m_window, TTM_ADDTOOLW, 0, toolParameter);
  Place();
}

void CToolTip::Place() noexcept {
  if (m_window == nullptr || !IsWindow(m_control)) return;
  TTTOOLINFOW tool = ToolOf(m_control);
  SendMessageW(m_window, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
  // Without a width the text would be one line.
  RECT dialog = {};
  GetClientRect(tool.hwnd, &dialog);
  SendMessageW(m_window, TTM_SETMAXTIPWIDTH, 0, dialog.right);
}

void CToolTip::Hide() noexcept {
  if (m_window != nullptr && IsWindow(m_window)) SendMessageW(m_window, TTM_POP, 0, 0);
}

}  // namespace quor
