#ifndef QUOR_WORKBENCH_HOST_MESSAGE_LOOP_H
#define QUOR_WORKBENCH_HOST_MESSAGE_LOOP_H

#include <windows.h>

#include <functional>

namespace quor::workbench {

// Outlook's message loop, with the scenario in control of time: posted messages are handled at
// once, timers only while the scenario waits. So each run of a scenario sees the same order.
class CMessageLoop {
 public:
  void Pump();
  // Handles one posted message; false if there is none.
  bool PumpOne();
  // Calls `done` after every message. False if it is not true within `milliseconds`.
  bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds);
  // For interactive use: handles everything in the system's order until `done`. False if it is not
  // true within `milliseconds`.
  bool RunUntil(const std::function<bool()>& done, unsigned milliseconds);

  // Lets the add-in's one-shot timer, due at once, tick before its repeating one, even on a slow
  // machine: drops ticks of the second until the first has come.
  void ExpectTimerFirst(UINT_PTR first, UINT_PTR second);
  // `watcher` receives each message of a timer as an action that handles it; 0: none.
  using Watcher = std::function<void(const std::function<void()>& handle)>;
  void WatchTimer(UINT_PTR timer, Watcher watcher);
  // The same for private messages posted to a module's windows.
  void WatchPosted(HMODULE module, Watcher watcher);
  // `filter` sees each message first and returns whether it has used it; null: none.
  using Filter = std::function<bool(MSG& message)>;
  void SetFilter(Filter filter) { m_filter = std::move(filter); }
  // Whether this loop, not a window's own, dispatched the current message.
  bool HandedOut(HWND window, UINT message, LPARAM lParam) const;

 private:
  bool HandleOne(UINT first, UINT last);
  void Handle(MSG& message);
  bool IsHeldBack(const MSG& message);
  const Watcher& WatcherOf(const MSG& message) const;

  UINT_PTR m_watchedTimer = 0;
  Watcher m_watcher;
  Filter m_filter;
  HMODULE m_postedModule = nullptr;
  Watcher m_postedWatcher;
  UINT_PTR m_firstTimer = 0;
  UINT_PTR m_heldTimer = 0;
  ULONGLONG m_heldUntil = 0;
  MSG m_handled = {};
};

}  // namespace quor::workbench

#endif
