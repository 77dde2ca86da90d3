#include "dialogs/pop_ups.h"

#include <iterator>
#include <string_view>

namespace quor {
namespace {

constexpr std::wstring_view kOutlookClass = L"rctrl_renwnd32";
constexpr int kLongestClassName = 260;
constexpr DWORD kRepaintInterval = 30;  // milliseconds

BOOL CALLBACK KeepOutlookWindow(HWND window, LPARAM found) {
  wchar_t name[kLongestClassName] = {};
  const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
  if (length <= 0 || std::wstring_view(name, static_cast<size_t>(length)) != kOutlookClass) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

void CPopUps::LogFailure(const char* window, HRESULT result) noexcept {
  if (FAILED(result)) {
    m_log.Print("** Error : %s not created. (0x%08X)\n", window, static_cast<unsigned>(result));
  }
}

void CPopUps::CreateCaller() noexcept {
  m_open = true;
  LogFailure("CSimpleWindow", m_caller.Create());
}

void CPopUps::FindOutlook() noexcept {
  m_outlook = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), KeepOutlookWindow, reinterpret_cast<LPARAM>(&m_outlook));
  m_messages.SetOwner(m_outlook);
  m_caller.SetOutlookWindow(m_outlook);
}

void CPopUps::CreateOthers() noexcept {
  LogFailure("CDataPopDlg", m_loading.Create(m_outlook));
}

void CPopUps::Destroy() noexcept {
  m_open = false;
  m_loading.Destroy();
  m_messages.Destroy();
  m_caller.Destroy();
}

void CPopUps::ShowMessage(int stringId) {
  if (m_open) m_messages.ShowMessage(stringId);
}

void CPopUps::RepaintLoading() noexcept {
  // Often enough for the eye; looking at the queue after each of thousands of contacts is not.
  const DWORD now = GetTickCount();
  if (now - m_lastRepaint < kRepaintInterval) return;
  m_lastRepaint = now;
  if (!m_loading.IsVisible()) return;
  // Paint messages of any window of the thread, Outlook's included, and nothing else: input and
  // timers wait until the scan is over.
  MSG message;
  while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE | PM_QS_PAINT)) {
    DispatchMessageW(&message);
  }
}

}  // namespace quor
