#include "dialogs/dialog_window.h"

#include "com/com_boundary.h"

namespace quor {

HRESULT CDialogWindow::CreateHidden(HWND parent) noexcept {
  if (IsWindow()) return S_OK;
  return GuardComCall(m_log, "dialog", [&]() -> HRESULT {
    const std::vector<std::byte> dialog = m_resources.DialogTemplate(m_templateId, m_mostPoints);
    // Some failures set no error code.
    SetLastError(ERROR_SUCCESS);
    if (dialog.empty() ||
        CreateDialogIndirectParamW(m_resources.Module(),
                                   reinterpret_cast<const DLGTEMPLATE*>(dialog.data()), parent,
                                   DialogProcedure, reinterpret_cast<LPARAM>(this)) == nullptr) {
      const DWORD error = GetLastError();
      return error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error);
    }
    return S_OK;
  });
}

void CDialogWindow::RequireWindow(HWND parent) {
  const HRESULT created = CreateHidden(parent);
  if (FAILED(created)) _com_issue_error(created);
}

void CDialogWindow::Destroy() noexcept {
  if (IsWindow()) DestroyWindow(m_window);
}

INT_PTR CALLBACK CDialogWindow::DialogProcedure(HWND window, UINT message, WPARAM wparam,
                                                LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<CDialogWindow*>(lparam)->m_window = window;
    SetWindowLongPtrW(window, DWLP_USER, lparam);
  }
  auto* self = reinterpret_cast<CDialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr) return FALSE;
  const IUnknownPtr alive = &self->m_object;
  INT_PTR result = TRUE;  // the message counts as handled if the handler throws
  GuardCall(self->m_log, "dialog message", [&] { result = self->Handle(message, wparam); });
  if (message == WM_DESTROY) {
    SetWindowLongPtrW(window, DWLP_USER, 0);
    self->m_window = nullptr;
  }
  return result;
}

}  // namespace quor
