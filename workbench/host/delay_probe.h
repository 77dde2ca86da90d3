#ifndef QUOR_WORKBENCH_HOST_DELAY_PROBE_H
#define QUOR_WORKBENCH_HOST_DELAY_PROBE_H

#include <windows.h>

namespace quor::workbench {

// Measures how long Outlook's thread lets others wait: a key stroke, which another thread sends
// every five milliseconds, and the add-in's poll of the base, which is due at a fixed interval.
// Only one probe at a time; it belongs to the thread that makes it.
class CDelayProbe {
 public:
  // Polls are the ticks of `pollTimer`, due every `interval` milliseconds.
  CDelayProbe(UINT_PTR pollTimer, double interval);
  ~CDelayProbe();
  CDelayProbe(const CDelayProbe&) = delete;
  CDelayProbe& operator=(const CDelayProbe&) = delete;

  // The longest so far, in milliseconds.
  double KeyDelay() const { return m_keyDelay; }
  double PollDelay() const { return m_pollDelay; }

 private:
  static void CALLBACK SendKey(void* probe, BOOLEAN);
  static LRESULT CALLBACK OnMessage(int code, WPARAM removed, LPARAM message);
  void Note(const MSG& message);

  static CDelayProbe* s_probe;
  HWND m_window;  // receives the key strokes
  UINT_PTR m_pollTimer;
  double m_interval;
  HHOOK m_hook;
  HANDLE m_keys = nullptr;
  double m_keyDelay = 0;
  double m_pollDelay = 0;
  double m_lastPoll = 0;
};

}  // namespace quor::workbench

#endif
