#include "workbench/host/message_loop.h"

#include <algorithm>
#include <set>
#include <utility>

#include "workbench/host/window_lists.h"

namespace quor::workbench {

namespace {

// Limit per pump, so that an add-in window that posts to itself without end does not hang the
// scenario.
constexpr int kMostMessages = 100'000;
constexpr ULONGLONG kLongestHold = 3'000;  // milliseconds
constexpr DWORD kLongestSleep = 50;

}  // namespace

bool CMessageLoop::HandleOne(UINT first, UINT last) {
  MSG message;
  if (!PeekMessageW(&message, nullptr, first, last, PM_REMOVE)) return false;
  if (message.message == WM_TIMER && IsHeldBack(message)) return true;
  const MSG outer = std::exchange(m_handled, message);
  Handle(message);
  m_handled = outer;
  return true;
}

void CMessageLoop::Handle(MSG& message) {
  // A copy: the filter may remove itself.
  if (const Filter filter = m_filter; filter && filter(message)) return;
  TranslateMessage(&message);
  const auto handle = [&message] { DispatchMessageW(&message); };
  // A copy: the handled message may end the watch.
  const Watcher watcher = WatcherOf(message);
  if (watcher) {
    watcher(handle);
  } else {
    handle();
  }
}

bool CMessageLoop::HandedOut(HWND window, UINT message, LPARAM lParam) const {
  return m_handled.hwnd == window && m_handled.message == message && m_handled.lParam == lParam;
}

const CMessageLoop::Watcher& CMessageLoop::WatcherOf(const MSG& message) const {
  static const Watcher nobody;
  if (message.message >= WM_APP && message.hwnd) {
    return CreatorOf(message.hwnd) == m_postedModule ? m_postedWatcher : nobody;
  }
  const bool watched = message.message == WM_TIMER && message.wParam == m_watchedTimer;
  return watched ? m_watcher : nobody;
}

void CMessageLoop::WatchTimer(UINT_PTR timer, Watcher watcher) {
  m_watchedTimer = timer;
  m_watcher = std::move(watcher);
}

void CMessageLoop::WatchPosted(HMODULE module, Watcher watcher) {
  m_postedModule = module;
  m_postedWatcher = std::move(watcher);
}

bool CMessageLoop::IsHeldBack(const MSG& message) {
  if (message.wParam == m_firstTimer || GetTickCount64() > m_heldUntil) {
    m_firstTimer = m_heldTimer = 0;
    m_heldUntil = ~0ULL;
  }
  return m_heldTimer != 0 && message.wParam == m_heldTimer;
}

void CMessageLoop::ExpectTimerFirst(UINT_PTR first, UINT_PTR second) {
  m_firstTimer = first;
  m_heldTimer = second;
  m_heldUntil = GetTickCount64() + kLongestHold;
}

bool CMessageLoop::PumpOne() {
  return HandleOne(0, WM_PAINT - 1) || HandleOne(WM_PAINT + 1, WM_TIMER - 1) ||
         HandleOne(WM_TIMER + 1, 0xFFFFFFFF);
}

// Paints each window once when no other message is left, so that a window that never finishes
// painting does not block the others.
void CMessageLoop::Pump() {
  std::set<HWND> painted;
  for (int i = 0; i < kMostMessages; ++i) {
    if (PumpOne()) {
      painted.clear();
      continue;
    }
    MSG paint;
    if (!PeekMessageW(&paint, nullptr, WM_PAINT, WM_PAINT, PM_NOREMOVE) ||
        !painted.insert(paint.hwnd).second) {
      return;
    }
    HandleOne(WM_PAINT, WM_PAINT);
  }
}

bool CMessageLoop::PumpUntil(const std::function<bool()>& done, unsigned milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  for (;;) {
    Pump();
    if (done()) return true;
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return false;
    if (HandleOne(WM_TIMER, WM_TIMER)) continue;
    const DWORD sleep = std::min(kLongestSleep, static_cast<DWORD>(end - now));
    MsgWaitForMultipleObjects(0, nullptr, FALSE, sleep, QS_ALLINPUT);
  }
}

// Peeks for every message at once: Wine forgets the first click of a double click when it looks at
// the second one while peeking for other messages.
bool CMessageLoop::RunUntil(const std::function<bool()>& done, unsigned milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  while (!done()) {
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return false;
    if (HandleOne(0, 0)) continue;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
  }
  return true;
}

}  // namespace quor::workbench
