#ifndef QUOR_WORKBENCH_HOST_MESSAGE_LOOP_H
#define QUOR_WORKBENCH_HOST_MESSAGE_LOOP_H

#include <windows.h>

#include <functional>

namespace quor::workbench {

// Outlook's message loop, with the clock in the scenario's hand: what is posted is handled at once,
// timers only while the scenario waits. So the same scenario sees the same order every time.
class CMessageLoop {
 public:
  void Pump();
  // Handles one message that is posted; false when there is none.
  bool PumpOne();
  // False when `milliseconds` pass before `done`, which is asked after every message.
  bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds);
  // For a person: everything as it comes, until the application ends.
  void Run();

  // The add-in's one-shot timer, due at once, goes before its repeating one, however slowly the
  // machine started it: until the first has come, ticks of the second are dropped.
  void ExpectTimerFirst(UINT_PTR first, UINT_PTR second);
  // `watcher` gets each message of a timer instead, as an action that handles it; 0: no longer.
  using Watcher = std::function<void(const std::function<void()>& handle)>;
  void WatchTimer(UINT_PTR timer, Watcher watcher);
  // The same for messages of an application's own that are posted to a module's windows.
  void WatchPosted(HMODULE module, Watcher watcher);
  // `filter` sees each message first, and says whether it has used it; null: no longer.
  using Filter = std::function<bool(MSG& message)>;
  void SetFilter(Filter filter) { m_filter = std::move(filter); }
  // Whether this loop, rather than a window's own, has handed out the message that is handled now.
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
