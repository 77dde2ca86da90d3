#ifndef QUOR_DIALOGS_KEY_GUARD_H
#define QUOR_DIALOGS_KEY_GUARD_H

#include <windows.h>

#include "dialogs/key_quiet.h"
#include "dialogs/window_watch.h"

namespace quor {

// Blocks keys meant for another window from a dialog and its controls, whether posted or sent, from
// any message loop. Does not affect the mouse or BM_CLICK.
class CKeyGuard final : private IWindowWatch {
 public:
  CKeyGuard() = default;
  CKeyGuard(const CKeyGuard&) = delete;
  CKeyGuard& operator=(const CKeyGuard&) = delete;

  // Guards the dialog and its present controls until they are destroyed, which must happen before
  // the guard is destroyed.
  void Attach(HWND dialog) noexcept;

  void Begin() noexcept { m_quiet.Begin(GetTickCount()); }
  void End() noexcept { m_quiet.End(); }

  // Whether a keyboard message may pass. `time` is the tick count (milliseconds) of the key stroke.
  bool Admits(UINT message, WPARAM wparam, LPARAM lparam, DWORD time) noexcept;

 private:
  std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM wparam,
                                   LPARAM lparam) noexcept override;

  CKeyQuiet m_quiet;
};

}  // namespace quor

#endif
