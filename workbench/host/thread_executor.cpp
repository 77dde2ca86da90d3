#include "workbench/host/thread_executor.h"

#include <stdexcept>

#include "workbench/host/worker_thread.h"

namespace quor::workbench {

namespace {

constexpr UINT kRunJob = WM_APP;
constexpr wchar_t kClassName[] = L"quor workbench executor";
// Milliseconds. After this time, check whether the step runs a window's own message loop.
constexpr DWORD kPatience = 250;

}  // namespace

CThreadExecutor::CThreadExecutor(CMessageLoop& loop, DWORD limit, std::function<void()> stuck)
    : m_loop(loop), m_limit(limit), m_stuck(std::move(stuck)) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = WindowProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClassName;
  RegisterClassW(&windowClass);
  m_window = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             windowClass.hInstance, nullptr);
  if (!m_window) throw std::runtime_error("no window for the scenario's steps");
  SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

CThreadExecutor::~CThreadExecutor() {
  DestroyWindow(m_window);
}

LRESULT CALLBACK CThreadExecutor::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                                  LPARAM lParam) {
  if (message != kRunJob) return DefWindowProcW(window, message, wParam, lParam);
  const std::unique_ptr<JobPtr> owned(reinterpret_cast<JobPtr*>(lParam));
  const JobPtr job = *owned;
  const auto* self =
      reinterpret_cast<const CThreadExecutor*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  job->insideWindow = !self->m_loop.HandedOut(window, message, lParam);
  try {
    job->action();
  } catch (...) {
    job->error = std::current_exception();
  }
  SetEvent(job->finished);
  return 0;
}

CThreadExecutor::JobPtr CThreadExecutor::Post(std::function<void()> action) {
  auto job = std::make_shared<Job>();
  job->action = std::move(action);
  job->finished = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  PostMessageW(m_window, kRunJob, 0, reinterpret_cast<LPARAM>(new JobPtr(job)));
  return job;
}

void CThreadExecutor::RethrowLateErrors() {
  for (auto job = m_unfinished.begin(); job != m_unfinished.end();) {
    if (WaitForSingleObject((*job)->finished, 0) != WAIT_OBJECT_0) {
      ++job;
      continue;
    }
    const std::exception_ptr error = (*job)->error;
    job = m_unfinished.erase(job);
    if (error) std::rethrow_exception(error);
  }
}

// Posts a message to find out: it is handled only in a message loop, either a window's own or ours,
// which a step may also run.
bool CThreadExecutor::IsInsideWindow() {
  const JobPtr probe = Post([] {});
  return WaitForSingleObject(probe->finished, kPatience) == WAIT_OBJECT_0 && probe->insideWindow;
}

void CThreadExecutor::Do(const std::function<void()>& action) {
  RethrowLateErrors();
  const JobPtr job = Post(action);
  DWORD waited = 0;
  while (WaitForSingleObject(job->finished, kPatience) != WAIT_OBJECT_0) {
    waited += kPatience;
    if (waited >= m_limit) m_stuck();
    if (IsInsideWindow() && WaitForSingleObject(job->finished, 0) != WAIT_OBJECT_0) {
      m_unfinished.push_back(job);
      return;
    }
  }
  if (job->error) std::rethrow_exception(job->error);
  RethrowLateErrors();
}

void CThreadExecutor::Serve(const std::function<void()>& script) {
  const HANDLE finished = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  CWorkerThread reader([&] {
    script();
    SetEvent(finished);
  });
  while (MsgWaitForMultipleObjects(1, &finished, FALSE, INFINITE, QS_ALLINPUT & ~QS_TIMER) !=
         WAIT_OBJECT_0) {
    m_loop.Pump();
  }
  reader.Join();
  CloseHandle(finished);
}

}  // namespace quor::workbench
