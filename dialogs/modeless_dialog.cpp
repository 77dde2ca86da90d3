#include "dialogs/modeless_dialog.h"

#include "outlook/com_boundary.h"
#include "text/ansi.h"

namespace quor {
namespace {

ScreenArea AreaFrom(const RECT& rectangle) noexcept {
  return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

struct Surroundings {
  ScreenArea anchor;
  ScreenArea workArea;
};

Surroundings SurroundingsOf(HWND outlook) noexcept {
  const bool usable =
      outlook != nullptr && IsWindow(outlook) && IsWindowVisible(outlook) && !IsIconic(outlook);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  // Of a window that is minimised or gone the system still tells the nearest monitor.
  GetMonitorInfoW(MonitorFromWindow(outlook, MONITOR_DEFAULTTOPRIMARY), &monitor);
  Surroundings result = {AreaFrom(monitor.rcWork), AreaFrom(monitor.rcWork)};
  RECT rectangle = {};
  if (usable && GetWindowRect(outlook, &rectangle)) result.anchor = AreaFrom(rectangle);
  return result;
}

}  // namespace

HRESULT CModelessDialog::CreateHidden(HWND owner) noexcept {
  if (IsWindow()) return S_OK;
  const DLGTEMPLATE* dialog = m_resources.DialogTemplate(m_templateId);
  // Not every failure leaves an error code.
  SetLastError(ERROR_SUCCESS);
  if (dialog == nullptr ||
      CreateDialogIndirectParamW(m_resources.Module(), dialog, owner, DialogProcedure,
                                 reinterpret_cast<LPARAM>(this)) == nullptr) {
    const DWORD error = GetLastError();
    return error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error);
  }
  return S_OK;
}

void CModelessDialog::RequireWindow(HWND owner) {
  const HRESULT created = CreateHidden(owner);
  if (FAILED(created)) _com_issue_error(created);
}

void CModelessDialog::ShowInFront(HWND outlook, Placement place) noexcept {
  if (!IsWindow()) return;
  // Twice: on another monitor the window may take another size.
  for (int pass = 0; pass < 2; ++pass) {
    RECT own = {};
    GetWindowRect(m_window, &own);
    const Surroundings around = SurroundingsOf(outlook);
    const ScreenPoint corner =
        place(around.anchor, own.right - own.left, own.bottom - own.top, around.workArea);
    SetWindowPos(m_window, nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  ShowWindow(m_window, SW_SHOW);
  RedrawWindow(m_window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  SetForegroundWindow(m_window);
  if (GetActiveWindow() == m_window) FocusControl(IDOK);
}

void CModelessDialog::FocusControl(int id) noexcept {
  SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

void CModelessDialog::Hide() noexcept {
  if (IsWindow()) ShowWindow(m_window, SW_HIDE);
}

void CModelessDialog::Destroy() noexcept {
  if (IsWindow()) DestroyWindow(m_window);
}

bool CModelessDialog::SetText(HWND window, std::wstring_view text) {
  return SetWindowTextA(window, AnsiFromWide(text).c_str()) != FALSE;
}

std::wstring CModelessDialog::TypedText(int id) const {
  const HWND control = Control(id);
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return text;
}

void CModelessDialog::OnButton(int) {
  Hide();
}

INT_PTR CALLBACK CModelessDialog::DialogProcedure(HWND window, UINT message, WPARAM wparam,
                                                  LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<CModelessDialog*>(lparam)->m_window = window;
    SetWindowLongPtrW(window, DWLP_USER, lparam);
  }
  auto* self = reinterpret_cast<CModelessDialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr) return FALSE;
  INT_PTR result = TRUE;  // a handler that failed has had its message
  GuardCall(self->m_log, "dialog message", [&] { result = self->Handle(message, wparam); });
  return result;
}

INT_PTR CModelessDialog::Handle(UINT message, WPARAM wparam) {
  switch (message) {
    case WM_INITDIALOG:
      OnCreated();
      return FALSE;  // TRUE would give the hidden window the focus
    case WM_SHOWWINDOW:
      if (wparam != FALSE) {
        m_keyboard.Attach(m_window);
      } else {
        m_keyboard.Detach();
      }
      return FALSE;
    case WM_COMMAND:
      if (HIWORD(wparam) != BN_CLICKED) return FALSE;
      OnButton(LOWORD(wparam));
      return TRUE;
    case WM_CLOSE:
      OnButton(IDCANCEL);
      return TRUE;
    case WM_DESTROY:
      m_keyboard.Detach();
      SetWindowLongPtrW(m_window, DWLP_USER, 0);
      m_window = nullptr;
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace quor
