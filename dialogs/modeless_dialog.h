#ifndef QUOR_DIALOGS_MODELESS_DIALOG_H
#define QUOR_DIALOGS_MODELESS_DIALOG_H

#include <windows.h>

#include <string>
#include <string_view>

#include "dialogs/dialog_keyboard.h"
#include "dialogs/placement.h"
#include "dialogs/resource_loader.h"
#include "module/diagnostic_log.h"

namespace quor {

// A window of ours made from a dialog template in the interface language: created hidden, then only
// filled, shown and hidden until it is destroyed. Nothing waits for it. The window is made and
// destroyed on Outlook's user-interface thread; the object may outlive it and make it anew.
class CModelessDialog {
 public:
  CModelessDialog(const CModelessDialog&) = delete;
  CModelessDialog& operator=(const CModelessDialog&) = delete;

  // Whether the window exists; it may have gone with its owner.
  bool IsWindow() const noexcept { return m_window != nullptr && ::IsWindow(m_window) != FALSE; }
  bool IsVisible() const noexcept { return IsWindow() && IsWindowVisible(m_window) != FALSE; }

  void Hide() noexcept;
  // Does nothing when there is no window.
  void Destroy() noexcept;

 protected:
  // Both must outlive the dialog.
  CModelessDialog(const CResourceLoader& resources, CDiagnosticLog& log, int templateId) noexcept
      : m_resources(resources), m_log(log), m_templateId(templateId) {}
  ~CModelessDialog() { Destroy(); }

  // S_OK when there is a window already. A failure without a last Win32 error is E_FAIL.
  HRESULT CreateHidden(HWND owner) noexcept;
  // The same, but throws the failure as a _com_error.
  void RequireWindow(HWND owner);

  using Placement = decltype(&CentreOver);
  // Places the window over Outlook's main window, or in the middle of the main screen when that is
  // null, gone or minimised; shows it (show command 5), draws it at once and brings it to the
  // foreground. What Windows makes of the last is its decision.
  void ShowInFront(HWND outlook, Placement place) noexcept;

  // Through the ANSI code page, as every text of ours reaches a control. False when there is no
  // such window.
  static bool SetText(HWND window, std::wstring_view text);
  // What the user typed, with every character that he typed.
  std::wstring TypedText(int id) const;
  // Moves the focus within the window, which must be the active one.
  void FocusControl(int id) noexcept;
  HWND Window() const noexcept { return m_window; }
  HWND Control(int id) const noexcept { return GetDlgItem(m_window, id); }

  // Called inside a boundary: throwing is allowed.
  virtual void OnCreated() {}
  // A button was pressed; closing the window by other means presses IDCANCEL. Hides it.
  virtual void OnButton(int id);

  const CResourceLoader& m_resources;
  CDiagnosticLog& m_log;

 private:
  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  INT_PTR Handle(UINT message, WPARAM wparam);

  int m_templateId;
  HWND m_window = nullptr;
  CDialogKeyboard m_keyboard;
};

}  // namespace quor

#endif
