#ifndef QUOR_DIALOGS_WINDOW_WATCH_H
#define QUOR_DIALOGS_WINDOW_WATCH_H

#include <windows.h>

#include <optional>

namespace quor {

// Sees the messages of a window before the window does.
class IWindowWatch {
 public:
  // Return a result to stop the message, or nothing to pass it on.
  virtual std::optional<LRESULT> OnMessage(HWND window, UINT message, WPARAM wparam,
                                           LPARAM lparam) noexcept = 0;

 protected:
  ~IWindowWatch() = default;
};

// Watches a window of ours until it is destroyed, which must happen before the watch is destroyed.
// Watches of one window are called in the order in which they were added. If memory runs out, the
// watch is not added.
void WatchWindow(HWND window, IWindowWatch& watch) noexcept;

}  // namespace quor

#endif
