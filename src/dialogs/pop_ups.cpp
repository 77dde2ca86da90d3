#include "dialogs/pop_ups.h"

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

}  // namespace quor
