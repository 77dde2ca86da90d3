#ifndef QUOR_DIALOGS_DIALOG_WINDOW_H
#define QUOR_DIALOGS_DIALOG_WINDOW_H

#include <unknwn.h>
#include <windows.h>

#include <cstdint>

#include "module/diagnostic_log.h"
#include "resources/resource_loader.h"

namespace quor {

// What a dialog needs from the COM object that it belongs to; all must outlive the dialog.
struct DialogHost {
  // Held while a message is handled: a button may call into Outlook, which may release the object.
  IUnknown& object;
  const CResourceLoader& resources;
  CDiagnosticLog& log;
};

// A window created from a dialog template in the interface language. Created and destroyed on
// Outlook's user-interface thread. The object may outlive its window and create another.
class CDialogWindow {
 public:
  CDialogWindow(const CDialogWindow&) = delete;
  CDialogWindow& operator=(const CDialogWindow&) = delete;

  // Whether the window exists. Windows may have destroyed it with its owner.
  bool IsWindow() const noexcept { return m_window != nullptr && ::IsWindow(m_window) != FALSE; }
  // Null if there is no window.
  HWND Window() const noexcept { return m_window; }
  // Does nothing if there is no window.
  void Destroy() noexcept;

 protected:
  // The font is the user's message font, but no larger than `mostPoints`. A derived class must
  // destroy the window in its destructor, while its message handler still exists.
  CDialogWindow(const DialogHost& host, int templateId, uint16_t mostPoints = UINT16_MAX) noexcept
      : m_resources(host.resources),
        m_log(host.log),
        m_object(host.object),
        m_templateId(templateId),
        m_mostPoints(mostPoints) {}
  ~CDialogWindow() = default;

  // S_OK if the window exists already; E_FAIL for a failure without a Win32 error code.
  HRESULT CreateHidden(HWND parent) noexcept;
  // The same, but throws a failure as a _com_error.
  void RequireWindow(HWND parent);
  HWND Control(int id) const noexcept { return GetDlgItem(m_window, id); }

  // Returns the dialog procedure's result. Called inside a boundary: exceptions are allowed. After
  // WM_DESTROY there is no window any more.
  virtual INT_PTR Handle(UINT message, WPARAM wparam) = 0;

  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;

 private:
  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  IUnknown& m_object;
  int m_templateId;
  uint16_t m_mostPoints;
  HWND m_window = nullptr;
};

}  // namespace quor

#endif
