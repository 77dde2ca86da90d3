#ifndef QUOR_DIALOGS_KEY_GUARD_H
#define QUOR_DIALOGS_KEY_GUARD_H

#include <windows.h>

#include "dialogs/key_quiet.h"

namespace quor {

// Keeps keys that were meant for another window from a dialog and its controls, whichever way they
// come: posted or sent, through a message loop of ours or of others. The mouse and BM_CLICK are no
// business of it.
class CKeyGuard {
 public:
  CKeyGuard() = default;
  CKeyGuard(const CKeyGuard&) = delete;
  CKeyGuard& operator=(const CKeyGuard&) = delete;

  // Watches the dialog and its present controls until they are destroyed, which must be before the
  // guard is.
  void Attach(HWND dialog) noexcept;

  void Begin() noexcept { m_quiet.Begin(GetTickCount()); }
  void End() noexcept { m_quiet.End(); }

  // Of a keyboard message. `time` is when the key was struck, in ticks.
  bool Admits(UINT message, WPARAM wparam, LPARAM lparam, DWORD time) noexcept;

 private:
  void Watch(HWND window) noexcept;
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam,
                                    LPARAM lparam) noexcept;

  CKeyQuiet m_quiet;
};

}  // namespace quor

#endif
