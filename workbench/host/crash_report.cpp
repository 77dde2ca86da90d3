#include "workbench/host/crash_report.h"

#include <windows.h>

#include <csignal>
#include <cstdio>
#include <iterator>

#include "workbench/host/console.h"

namespace quor::workbench {

namespace {

// Uses as little as possible of the crashed process.
void WriteLine(const char* text) {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD written = 0;
  WriteFile(output, text, static_cast<DWORD>(lstrlenA(text)), &written, nullptr);
}

LONG WINAPI OnException(EXCEPTION_POINTERS* pointers) {
  const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
  HMODULE module = nullptr;
  char name[MAX_PATH] = "no module";
  if (GetModuleHandleExA(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          static_cast<LPCSTR>(record.ExceptionAddress), &module)) {
    GetModuleFileNameA(module, name, MAX_PATH);
  }
  const auto offset =
      static_cast<const char*>(record.ExceptionAddress) - reinterpret_cast<const char*>(module);
  char line[1024];
  std::snprintf(line, std::size(line), "CRASHED exception 0x%08lX at %s+0x%llX, %s\n",
                record.ExceptionCode, name, static_cast<unsigned long long>(offset),
                CConsole::CurrentCommand());
  WriteLine(line);
  TerminateProcess(GetCurrentProcess(), kExitCrashed);
  return EXCEPTION_EXECUTE_HANDLER;
}

void OnAbort(int) {
  char line[512];
  std::snprintf(line, std::size(line), "CRASHED abort, %s\n", CConsole::CurrentCommand());
  WriteLine(line);
  TerminateProcess(GetCurrentProcess(), kExitCrashed);
}

}  // namespace

void ReportCrashes() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  SetUnhandledExceptionFilter(OnException);
  std::signal(SIGABRT, OnAbort);
}

void ReportStuck() {
  char line[512];
  std::snprintf(line, std::size(line), "STUCK Outlook's thread does not return, %s\n",
                CConsole::CurrentCommand());
  WriteLine(line);
  TerminateProcess(GetCurrentProcess(), kExitStuck);
  for (;;)
    Sleep(INFINITE);
}

}  // namespace quor::workbench
