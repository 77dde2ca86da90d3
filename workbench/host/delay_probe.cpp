#include "workbench/host/delay_probe.h"

#include <algorithm>

#include "workbench/host/clock.h"

namespace quor::workbench {

namespace {

constexpr DWORD kKeyInterval = 5;  // milliseconds
constexpr WPARAM kKey = VK_F24;
constexpr DWORD kCountsPerMillisecond = 100;

// Fits the LPARAM of a 32-bit program and wraps after twelve hours.
DWORD CountsNow() {
  return static_cast<DWORD>(static_cast<ULONGLONG>(MillisecondsNow() * kCountsPerMillisecond));
}

}  // namespace

CDelayProbe* CDelayProbe::s_probe = nullptr;

CDelayProbe::CDelayProbe(UINT_PTR pollTimer, double interval)
    : m_window(CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                               nullptr)),
      m_pollTimer(pollTimer),
      m_interval(interval),
      m_hook(SetWindowsHookExW(WH_GETMESSAGE, OnMessage, nullptr, GetCurrentThreadId())) {
  s_probe = this;
  CreateTimerQueueTimer(&m_keys, nullptr, SendKey, this, kKeyInterval, kKeyInterval,
                        WT_EXECUTEINTIMERTHREAD);
}

CDelayProbe::~CDelayProbe() {
  // Waits for a key that is being sent.
  DeleteTimerQueueTimer(nullptr, m_keys, INVALID_HANDLE_VALUE);
  UnhookWindowsHookEx(m_hook);
  DestroyWindow(m_window);
  s_probe = nullptr;
}

void CALLBACK CDelayProbe::SendKey(void* probe, BOOLEAN) {
  const auto* self = static_cast<const CDelayProbe*>(probe);
  PostMessageW(self->m_window, WM_KEYUP, kKey, static_cast<LPARAM>(CountsNow()));
}

LRESULT CALLBACK CDelayProbe::OnMessage(int code, WPARAM removed, LPARAM message) {
  if (code == HC_ACTION && removed == PM_REMOVE) {
    s_probe->Note(*reinterpret_cast<const MSG*>(message));
  }
  return CallNextHookEx(nullptr, code, removed, message);
}

void CDelayProbe::Note(const MSG& message) {
  if (message.message == WM_KEYUP && message.wParam == kKey) {
    const DWORD waited = CountsNow() - static_cast<DWORD>(message.lParam);
    m_keyDelay = std::max(m_keyDelay, static_cast<double>(waited) / kCountsPerMillisecond);
  }
  if (message.message == WM_TIMER && message.wParam == m_pollTimer) {
    const double now = MillisecondsNow();
    if (m_lastPoll != 0) m_pollDelay = std::max(m_pollDelay, now - m_lastPoll - m_interval);
    m_lastPoll = now;
  }
}

}  // namespace quor::workbench
