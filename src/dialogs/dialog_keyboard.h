#ifndef QUOR_DIALOGS_DIALOG_KEYBOARD_H
#define QUOR_DIALOGS_DIALOG_KEYBOARD_H

#include <windows.h>

namespace quor {

// Asked before a key does anything in a dialog.
class IKeyFilter {
 public:
  virtual bool AdmitsKey(const MSG& message) noexcept = 0;

 protected:
  ~IKeyFilter() = default;
};

// Keyboard use of a modeless dialog (Tab, arrows, Enter, Esc, access keys), which a message loop
// must know of but Outlook's does not. While attached, a hook sees the thread's keyboard messages
// before Outlook takes them for its own shortcuts, and handles those of the dialog.
class CDialogKeyboard {
 public:
  CDialogKeyboard() = default;
  ~CDialogKeyboard() { Detach(); }
  CDialogKeyboard(const CDialogKeyboard&) = delete;
  CDialogKeyboard& operator=(const CDialogKeyboard&) = delete;

  // Of a dialog of the calling thread; the filter must outlive the attachment. Without memory for a
  // hook the mouse remains.
  void Attach(HWND dialog, IKeyFilter& filter) noexcept;
  // Safe inside a message that the hook itself delivers.
  void Detach() noexcept;

 private:
  HWND m_dialog = nullptr;
  HHOOK m_hook = nullptr;
};

}  // namespace quor

#endif
