#ifndef QUOR_DIALOGS_MODELESS_DIALOG_H
#define QUOR_DIALOGS_MODELESS_DIALOG_H

#include <string>
#include <string_view>

#include "dialogs/dialog_keyboard.h"
#include "dialogs/dialog_window.h"
#include "resources/placement.h"

namespace quor {

// A window that is created hidden and then only filled, shown and hidden until it is destroyed. No
// call waits for the user.
class CModelessDialog : public CDialogWindow, private IKeyFilter {
 public:
  bool IsVisible() const noexcept { return IsWindow() && IsWindowVisible(Window()) != FALSE; }

  void Hide() noexcept;

 protected:
  using CDialogWindow::CDialogWindow;
  ~CModelessDialog() { Destroy(); }

  // Creates the window if needed. Recreates a hidden window that has another owner, because it
  // would open behind `owner`.
  void RequireWindow(HWND owner);

  using Placement = decltype(&CentreOver);
  // Centres the window over Outlook's main window, or on the main screen if that is null, destroyed
  // or minimised. Shows it (show command 5), paints it at once and asks Windows to bring it to the
  // foreground, which Windows may refuse.
  void ShowInFront(HWND outlook, Placement place) noexcept;

  // Enables or disables the control. If it loses the focus, `next` gets it: otherwise no key would
  // work.
  void EnableControl(int id, bool enabled, int next) noexcept;

  // Converts the text through the ANSI code page, as texts of the base and of messages are shown.
  // False if the window does not exist.
  static bool SetText(HWND window, std::wstring_view text);
  // The text as the user typed it, without any conversion.
  std::wstring TypedText(int id) const;
  // Moves the focus within the window, which must be active.
  void FocusControl(int id) noexcept;

  // Called inside a boundary: exceptions are allowed.
  virtual void OnCreated() {}
  virtual void OnActivation(bool) {}
  // Handles a pressed button; closing the window in another way presses IDCANCEL. Hides the window.
  virtual void OnButton(int id);

 private:
  INT_PTR Handle(UINT message, WPARAM wparam) override;
  bool AdmitsKey(const MSG&) noexcept override { return true; }

  CDialogKeyboard m_keyboard;
};

}  // namespace quor

#endif
