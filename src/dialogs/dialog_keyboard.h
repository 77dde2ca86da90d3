#ifndef QUOR_DIALOGS_DIALOG_KEYBOARD_H
#define QUOR_DIALOGS_DIALOG_KEYBOARD_H

#include <windows.h>

namespace quor {

// Decides whether a key may have an effect in a dialog.
class IKeyFilter {
 public:
  virtual bool AdmitsKey(const MSG& message) noexcept = 0;

 protected:
  ~IKeyFilter() = default;
};

// Keyboard use of a modeless dialog: Tab, arrows, Enter, Esc, access keys. These need
// IsDialogMessage in the message loop, which Outlook's loop does not call. While attached, a hook
// sees the thread's keyboard messages before Outlook uses them as shortcuts, and handles those of
// the dialog.
class CDialogKeyboard {
 public:
  CDialogKeyboard() = default;
  ~CDialogKeyboard() { Detach(); }
  CDialogKeyboard(const CDialogKeyboard&) = delete;
  CDialogKeyboard& operator=(const CDialogKeyboard&) = delete;

  // The dialog must belong to the calling thread; the filter must outlive the attachment. If the
  // hook cannot be set, the dialog works with the mouse only.
  void Attach(HWND dialog, IKeyFilter& filter) noexcept;
  // May be called inside a message that the hook delivers.
  void Detach() noexcept;

 private:
  HWND m_dialog = nullptr;
  HHOOK m_hook = nullptr;
};

}  // namespace quor

#endif
