#include "workbench/host/import_faults.h"

// clang-format off
#include <windows.h>
#include <shlobj.h>
// clang-format on

#include "workbench/host/hooked_import.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr FailingCalls kNone = {0, 0, 0};

// A function that can be made to fail.
struct FailingImport : HookedImport {
  unsigned calls = 0;
  FailingCalls failing = kNone;
};

bool g_hastenTimers = false;
std::string g_opened;
int g_dotsPerInch = 0;

bool MustFail(FailingImport& function) {
  const unsigned call = ++function.calls;
  const FailingCalls& failing = function.failing;
  const bool fails = failing.firstCall != 0 && call >= failing.firstCall &&
                     (failing.lastCall == 0 || call <= failing.lastCall);
  if (fails) SetLastError(failing.status);
  return fails;
}

enum Index {
  kPostMessageA,
  kPostMessageW,
  kCreateWindowExA,
  kCreateWindowExW,
  kSetTimer,
  kSetThreadLocale,
  kShGetFolderPathA,
  kMakeSureDirectoryPathExists,
  kMoveFileExW,
  kMoveFileExA,
  kReplaceFileW,
  kShellExecuteA,
  kGetDeviceCaps,
};

extern FailingImport g_functions[];

template <Index index, typename Result, Result kFailed, typename... Arguments>
Result WINAPI Replacement(Arguments... arguments) {
  FailingImport& function = g_functions[index];
  if (MustFail(function)) return kFailed;
  const auto original = reinterpret_cast<Result(WINAPI*)(Arguments...)>(function.original);
  return original(arguments...);
}

UINT_PTR WINAPI SetTimerReplacement(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
  FailingImport& function = g_functions[kSetTimer];
  if (MustFail(function)) return 0;
  const auto original = reinterpret_cast<decltype(&SetTimer)>(function.original);
  return original(window, id, g_hastenTimers ? USER_TIMER_MINIMUM : period, procedure);
}

HINSTANCE WINAPI ShellExecuteReplacement(HWND, LPCSTR, LPCSTR file, LPCSTR, LPCSTR, INT) {
  constexpr INT_PTR kDone = 33;
  if (MustFail(g_functions[kShellExecuteA])) return nullptr;
  g_opened = file;
  return reinterpret_cast<HINSTANCE>(kDone);
}

int WINAPI GetDeviceCapsReplacement(HDC device, int index) {
  FailingImport& function = g_functions[kGetDeviceCaps];
  if (MustFail(function)) return 0;
  if (g_dotsPerInch != 0 && (index == LOGPIXELSX || index == LOGPIXELSY)) return g_dotsPerInch;
  return reinterpret_cast<decltype(&GetDeviceCaps)>(function.original)(device, index);
}

FailingImport g_functions[] = {
    {{"PostMessageA", AsProc(Replacement<kPostMessageA, BOOL, FALSE, HWND, UINT, WPARAM, LPARAM>)}},
    {{"PostMessageW", AsProc(Replacement<kPostMessageW, BOOL, FALSE, HWND, UINT, WPARAM, LPARAM>)}},
    {{"CreateWindowExA",
      AsProc(Replacement<kCreateWindowExA, HWND, nullptr, DWORD, LPCSTR, LPCSTR, DWORD, int, int,
                         int, int, HWND, HMENU, HINSTANCE, LPVOID>)}},
    {{"CreateWindowExW",
      AsProc(Replacement<kCreateWindowExW, HWND, nullptr, DWORD, LPCWSTR, LPCWSTR, DWORD, int, int,
                         int, int, HWND, HMENU, HINSTANCE, LPVOID>)}},
    {{"SetTimer", AsProc(SetTimerReplacement)}},
    {{"SetThreadLocale", AsProc(Replacement<kSetThreadLocale, BOOL, FALSE, LCID>)}},
    {{"SHGetFolderPathA",
      AsProc(Replacement<kShGetFolderPathA, HRESULT, E_FAIL, HWND, int, HANDLE, DWORD, LPSTR>)}},
    {{"MakeSureDirectoryPathExists",
      AsProc(Replacement<kMakeSureDirectoryPathExists, BOOL, FALSE, PCSTR>)}},
    {{"MoveFileExW", AsProc(Replacement<kMoveFileExW, BOOL, FALSE, LPCWSTR, LPCWSTR, DWORD>)}},
    {{"MoveFileExA", AsProc(Replacement<kMoveFileExA, BOOL, FALSE, LPCSTR, LPCSTR, DWORD>)}},
    {{"ReplaceFileW", AsProc(Replacement<kReplaceFileW, BOOL, FALSE, LPCWSTR, LPCWSTR, LPCWSTR,
                                         DWORD, LPVOID, LPVOID>)}},
    {{"ShellExecuteA", AsProc(ShellExecuteReplacement)}},
    {{"GetDeviceCaps", AsProc(GetDeviceCapsReplacement)}},
};

}  // namespace

void CImportFaults::Fail(HMODULE module, const std::string& name, const FailingCalls& calls) {
  for (FailingImport& function : g_functions) {
    if (name != function.name) continue;
    if (!function.Hook(module)) throw CScenarioError("the add-in does not import " + name);
    function.calls = 0;
    function.failing = calls;
    return;
  }
  std::string known;
  for (const FailingImport& function : g_functions)
    known += std::string(" ") + function.name;
  throw CScenarioError("only these can be made to fail:" + known);
}

void CImportFaults::HastenTimers(HMODULE module) {
  g_hastenTimers = g_functions[kSetTimer].Hook(module);
}

void CImportFaults::CatchOpening(HMODULE module) {
  g_functions[kShellExecuteA].Hook(module);
}

const std::string& CImportFaults::LastOpened() {
  return g_opened;
}

void CImportFaults::ShowDotsPerInch(HMODULE module, int dotsPerInch) {
  g_dotsPerInch = g_functions[kGetDeviceCaps].Hook(module) ? dotsPerInch : 0;
}

void CImportFaults::Forget() {
  for (FailingImport& function : g_functions) {
    function.Unhook();
    function.failing = kNone;
  }
  g_hastenTimers = false;
  g_opened.clear();
  g_dotsPerInch = 0;
}

}  // namespace quor::workbench
