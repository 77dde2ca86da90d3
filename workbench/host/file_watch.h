#ifndef QUOR_WORKBENCH_HOST_FILE_WATCH_H
#define QUOR_WORKBENCH_HOST_FILE_WATCH_H

#include <atomic>
#include <cstdint>
#include <string>

#include "workbench/host/worker_thread.h"

namespace quor::workbench {

// Reads an XML file of elements without attributes again and again on another thread, at any
// moment, like a program started after a crash.
class CFileWatch {
 public:
  explicit CFileWatch(std::wstring path);
  ~CFileWatch() { End(); }
  CFileWatch(const CFileWatch&) = delete;
  CFileWatch& operator=(const CFileWatch&) = delete;

  void End();
  // After End: the number of readings, and the content the first time that the file was missing or
  // incomplete; empty if it never was.
  uint64_t Readings() const { return m_readings; }
  const std::string& FirstFault() const { return m_fault; }

 private:
  void Watch();

  std::wstring m_path;
  std::atomic<bool> m_stop = false;
  uint64_t m_readings = 0;
  std::string m_fault;
  CWorkerThread m_thread;
};

}  // namespace quor::workbench

#endif
