#ifndef QUOR_DEVICE_WATCH_THREAD_H
#define QUOR_DEVICE_WATCH_THREAD_H

namespace quor {

// A thread that watches for the base beside the poll timer. The add-in starts none; the shutdown
// can already end one, so that adding it changes no shutdown code.
class IWatchThread {
 public:
  // Signals the stop event, waits for the thread without a time limit, closes both handles.
  virtual void StopAndWait() noexcept = 0;

 protected:
  ~IWatchThread() = default;
};

}  // namespace quor

#endif
