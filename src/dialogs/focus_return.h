#ifndef QUOR_DIALOGS_FOCUS_RETURN_H
#define QUOR_DIALOGS_FOCUS_RETURN_H

#include <windows.h>

namespace quor {

// Returns the keyboard focus to the window that had it before one of ours came to the front by
// itself.
class CFocusReturn {
 public:
  // Stores the focus owner; call before our window takes the focus.
  void Note() noexcept;
  // Drops the stored owner, because the user has activated another window.
  void Forget() noexcept;
  // Call before `leaving` is hidden. Does nothing unless it is the active window and the stored
  // owner still exists and can take the focus. May pump messages.
  void Return(HWND leaving) noexcept;

 private:
  HWND m_foreground = nullptr;  // possibly of another program
  HWND m_focus = nullptr;       // a window of this thread
};

}  // namespace quor

#endif
