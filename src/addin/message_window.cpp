#include "addin/message_window.h"

#include "com/com_boundary.h"
#include "module/module.h"

namespace quor {
namespace {

constexpr wchar_t kClassName[] = L"QuorTelephoneToolbarMessages";
constexpr wchar_t kWindowName[] = L"CAddin";

HRESULT LastFailure() noexcept {
  const DWORD error = GetLastError();
  return error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error);
}

}  // namespace

HRESULT CMessageWindow::Create() noexcept {
  // The second message is reserved for the opposite direction; nothing uses it yet.
  m_deviceMessage = RegisterWindowMessageA("WM_USBXpress_CP210x2ADDIN");
  RegisterWindowMessageA("WM_ADDIN2USBXpress_CP210x");

  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = WindowProcedure;
  windowClass.hInstance = ModuleInstance();
  windowClass.lpszClassName = kClassName;
  SetLastError(ERROR_SUCCESS);
  if (RegisterClassExW(&windowClass) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
    return LastFailure();
  }
  SetLastError(ERROR_SUCCESS);
  m_window = CreateWindowExW(0, kClassName, kWindowName, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                             ModuleInstance(), this);
  return m_window != nullptr ? S_OK : LastFailure();
}

void CMessageWindow::Destroy() noexcept {
  if (m_window == nullptr) return;
  SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
  DestroyWindow(m_window);
  m_window = nullptr;
  // The class refers to code of this module, which may be unloaded next.
  UnregisterClassW(kClassName, ModuleInstance());
}

bool CMessageWindow::PostDeviceEvent(DeviceEvent event, uint8_t lineType) noexcept {
  return m_window != nullptr &&
         PostMessageA(m_window, m_deviceMessage, static_cast<WPARAM>(event), lineType) != FALSE;
}

bool CMessageWindow::PostRequest(WindowRequest request, uint32_t parameter) noexcept {
  return m_window != nullptr &&
         PostMessageA(m_window, WM_APP + static_cast<UINT>(request), parameter, 0) != FALSE;
}

bool CMessageWindow::StartTimer(UINT_PTR timer, UINT milliseconds) noexcept {
  return m_window != nullptr && SetTimer(m_window, timer, milliseconds, nullptr) != 0;
}

void CMessageWindow::StopTimer(UINT_PTR timer) noexcept {
  if (m_window != nullptr) KillTimer(m_window, timer);
}

LRESULT CALLBACK CMessageWindow::WindowProcedure(HWND window, UINT message, WPARAM wparam,
                                                 LPARAM lparam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lparam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto* self = reinterpret_cast<CMessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self != nullptr) {
    const IUnknownPtr owner = &self->m_owner;
    bool handled = true;  // the message counts as handled if the handler throws
    GuardCall(self->m_log, "window message",
              [&] { handled = self->Dispatch(message, wparam, lparam); });
    if (handled) return 0;
  }
  return DefWindowProcW(window, message, wparam, lparam);
}

bool CMessageWindow::Dispatch(UINT message, WPARAM wparam, LPARAM lparam) {
  // Tools that end programs close all windows, but Outlook may stay.
  if (message == WM_CLOSE) return true;
  if (message == m_deviceMessage) {
    m_handler.OnDeviceEvent(static_cast<DeviceEvent>(wparam), static_cast<uint8_t>(lparam));
    return true;
  }
  if (message == WM_TIMER) {
    m_handler.OnTimer(wparam);
    return true;
  }
  const UINT request = message - WM_APP;
  switch (static_cast<WindowRequest>(request)) {
    case WindowRequest::SetBarState:
    case WindowRequest::ClearDial:
    case WindowRequest::Refresh:
    case WindowRequest::CloseLoading:
    case WindowRequest::StartupRequest:
    case WindowRequest::CallRequest:
    case WindowRequest::OnHookRequest:
      m_handler.OnRequest(static_cast<WindowRequest>(request), static_cast<uint32_t>(wparam));
      return true;
  }
  return false;
}

}  // namespace quor
