#ifndef QUOR_DIALOGS_MODELESS_DIALOG_H
#define QUOR_DIALOGS_MODELESS_DIALOG_H

#include <string>
#include <string_view>

#include "dialogs/dialog_keyboard.h"
#include "dialogs/dialog_window.h"
#include "resources/placement.h"

namespace quor {

// A window that is created hidden, then only filled, shown and hidden until it is destroyed.
// Nothing waits for it.
class CModelessDialog : public CDialogWindow, private IKeyFilter {
 public:
  bool IsVisible() const noexcept { return IsWindow() && IsWindowVisible(Window()) != FALSE; }

  void Hide() noexcept;

 protected:
  using CDialogWindow::CDialogWindow;
  ~CModelessDialog() { Destroy(); }

  // As the base's. A hidden window that another one owns is made again: it would open behind that.
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

  // Called inside a boundary: throwing is allowed.
  virtual void OnCreated() {}
  virtual void OnActivation(bool) {}
  // A button was pressed; closing the window by other means presses IDCANCEL. Hides it.
  virtual void OnButton(int id);

 private:
  INT_PTR Handle(UINT message, WPARAM wparam) override;
  bool AdmitsKey(const MSG&) noexcept override { return true; }

  CDialogKeyboard m_keyboard;
};

}  // namespace quor

#endif
