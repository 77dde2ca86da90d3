#include "workbench/host/worker_thread.h"

#include <system_error>
#include <utility>

namespace quor::workbench {

CWorkerThread::CWorkerThread(std::function<void()> body)
    : m_body(std::move(body)), m_thread(CreateThread(nullptr, 0, Run, this, 0, nullptr)) {
  if (m_thread == nullptr) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
}

void CWorkerThread::Join() noexcept {
  if (m_thread == nullptr) return;
  WaitForSingleObject(m_thread, INFINITE);
  CloseHandle(m_thread);
  m_thread = nullptr;
}

DWORD WINAPI CWorkerThread::Run(void* self) {
  static_cast<CWorkerThread*>(self)->m_body();
  return 0;
}

}  // namespace quor::workbench
