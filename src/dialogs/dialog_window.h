#ifndef QUOR_DIALOGS_DIALOG_WINDOW_H
#define QUOR_DIALOGS_DIALOG_WINDOW_H

#include <unknwn.h>
#include <windows.h>

#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"

namespace quor {

// What a dialog needs of the COM object that it is a part of; all of it must outlive the dialog.
struct DialogHost {
  // Kept alive while a message is handled: what a button does may end in Outlook, which may release
  // the object there.
  IUnknown& object;
  const CResourceLoader& resources;
  CDiagnosticLog& log;
};

// A window made from a dialog template in the interface language. It is made and destroyed on
// Outlook's user-interface thread; the object may outlive it and make it anew.
class CDialogWindow {
 public:
  CDialogWindow(const CDialogWindow&) = delete;
  CDialogWindow& operator=(const CDialogWindow&) = delete;

  // Whether the window exists; it may have gone with its owner.
  bool IsWindow() const noexcept { return m_window != nullptr && ::IsWindow(m_window) != FALSE; }
  // Null without a window.
  HWND Window() const noexcept { return m_window; }
  // Does nothing when there is no window.
  void Destroy() noexcept;

 protected:
  // Who derives destroys the window before the handler goes.
  CDialogWindow(const DialogHost& host, int templateId) noexcept
      : m_resources(host.resources),
        m_log(host.log),
        m_object(host.object),
        m_templateId(templateId) {}
  ~CDialogWindow() = default;

  // S_OK when there is a window already. A failure without a last Win32 error is E_FAIL.
  HRESULT CreateHidden(HWND parent) noexcept;
  // The same, but throws the failure as a _com_error.
  void RequireWindow(HWND parent);
  HWND Control(int id) const noexcept { return GetDlgItem(m_window, id); }

  // What a dialog procedure answers. Called inside a boundary: throwing is allowed. After
  // WM_DESTROY there is no window any longer.
  virtual INT_PTR Handle(UINT message, WPARAM wparam) = 0;

  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;

 private:
  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  IUnknown& m_object;
  int m_templateId;
  HWND m_window = nullptr;
};

}  // namespace quor

#endif
