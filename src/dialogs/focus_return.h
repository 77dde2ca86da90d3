#ifndef QUOR_DIALOGS_FOCUS_RETURN_H
#define QUOR_DIALOGS_FOCUS_RETURN_H

#include <windows.h>

namespace quor {

// Gives the keyboard back to the window that had it when one of ours came to the front by itself.
class CFocusReturn {
 public:
  // Notes who has the keyboard, before our window takes it.
  void Note() noexcept;
  // Another window has been activated since: the user is elsewhere.
  void Forget() noexcept;
  // `leaving` is about to be hidden. Nothing happens unless it is the active window, and nothing
  // that has gone or cannot take the keyboard gets it. Calls out, and so may pump messages.
  void Return(HWND leaving) noexcept;

 private:
  HWND m_foreground = nullptr;  // perhaps of another program
  HWND m_focus = nullptr;       // of this thread
};

}  // namespace quor

#endif
