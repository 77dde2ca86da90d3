#ifndef QUOR_DEVICE_WATCH_THREAD_H
#define QUOR_DEVICE_WATCH_THREAD_H

namespace quor {

// A thread that would watch for the base beside the poll timer. This add-in starts none; shutdown
// knows how to end one, so that adding it touches no shutdown path.
class IWatchThread {
 public:
  // Signals the stop event, waits for the thread without a time limit, closes both handles.
  virtual void StopAndWait() noexcept = 0;

 protected:
  ~IWatchThread() = default;
};

}  // namespace quor

#endif
