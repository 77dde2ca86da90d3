#ifndef QUOR_WORKBENCH_HOST_WORKER_THREAD_H
#define QUOR_WORKBENCH_HOST_WORKER_THREAD_H

#include <windows.h>

#include <functional>

namespace quor::workbench {

// A thread that runs one function. The compiler's thread model has no std::thread.
class CWorkerThread {
 public:
  // The body must not throw. Throws std::system_error if the thread cannot be created.
  explicit CWorkerThread(std::function<void()> body);
  // Waits for the end of the body.
  ~CWorkerThread() { Join(); }
  CWorkerThread(const CWorkerThread&) = delete;
  CWorkerThread& operator=(const CWorkerThread&) = delete;

  void Join() noexcept;

 private:
  static DWORD WINAPI Run(void* self);

  std::function<void()> m_body;
  HANDLE m_thread;
};

}  // namespace quor::workbench

#endif
