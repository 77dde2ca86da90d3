#ifndef QUOR_DIALOGS_WINDOW_WATCH_H
#define QUOR_DIALOGS_WINDOW_WATCH_H

#include <windows.h>

#include <optional>

namespace quor {

// Sees the messages of a window before the window does.
class IWindowWatch {
 public:
  // The result of a message that goes no further; nothing to pass the message on.
  virtual std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM wparam,
                                           LPARAM lparam) noexcept = 0;

 protected:
  ~IWindowWatch() = default;
};

// Watches a window of ours until it is destroyed, which must be before the watch is. Several
// watches are asked in the order in which they came. Without memory the watch sees nothing.
void WatchWindow(HWND window, IWindowWatch& watch) noexcept;

}  // namespace quor

#endif
