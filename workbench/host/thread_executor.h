#ifndef QUOR_WORKBENCH_HOST_THREAD_EXECUTOR_H
#define QUOR_WORKBENCH_HOST_THREAD_EXECUTOR_H

#include <windows.h>

#include <exception>
#include <functional>
#include <memory>
#include <vector>

#include "workbench/host/message_loop.h"

namespace quor::workbench {

// Executes the steps of a run. On Windows each step runs on Outlook's thread; the next one starts
// while a step is still inside a window that waits for the user.
class IExecutor {
 public:
  // Exceptions of the action are thrown by this call or a later one.
  virtual void Do(const std::function<void()>& action) = 0;

 protected:
  ~IExecutor() = default;
};

// Runs the steps of a scenario on Outlook's thread; the scenario is read on another thread. A step
// that opens a window with its own message loop returns only when that window closes. The following
// steps run inside that loop, as when a user goes on clicking.
class CThreadExecutor final : public IExecutor {
 public:
  // Construct on Outlook's thread. If that thread does not answer within the limit, `stuck` is
  // called on the other thread and must end the process.
  CThreadExecutor(CMessageLoop& loop, DWORD limit, std::function<void()> stuck);
  ~CThreadExecutor();
  CThreadExecutor(const CThreadExecutor&) = delete;
  CThreadExecutor& operator=(const CThreadExecutor&) = delete;

  void Do(const std::function<void()>& action) override;

  // On Outlook's thread: runs the script on another thread and serves it until it returns.
  void Serve(const std::function<void()>& script);

 private:
  struct Job {
    std::function<void()> action;
    HANDLE finished;
    std::exception_ptr error;
    bool insideWindow = false;  // a window's own loop ran it

    ~Job() { CloseHandle(finished); }
  };
  using JobPtr = std::shared_ptr<Job>;

  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  JobPtr Post(std::function<void()> action);
  bool IsInsideWindow();
  void RethrowLateErrors();

  CMessageLoop& m_loop;
  DWORD m_limit;
  std::function<void()> m_stuck;
  HWND m_window = nullptr;
  std::vector<JobPtr> m_unfinished;
};

}  // namespace quor::workbench

#endif
