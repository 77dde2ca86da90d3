#include "workbench/host/module_meter.h"

#include <array>
#include <cstddef>
#include <utility>

#include "workbench/host/clock.h"
#include "workbench/host/hooked_import.h"

namespace quor::workbench {

namespace {

enum Index {
  kMalloc,
  kCalloc,
  kRealloc,
  kFree,
  kStrdup,
  kClsidFromProgId,
  kMoveFileExA,
  kMonitorFromWindow,
  kGetMonitorInfo,
  kSetWindowPos,
  kShowWindow,
  kRedrawWindow,
  kSetForegroundWindow,
  kPeekMessage,
  kDispatchMessage,
  kCount
};

extern std::array<HookedImport, kCount> g_imports;

template <typename Function>
Function* Original(Index index) {
  return reinterpret_cast<Function*>(g_imports[index].original);
}

int64_t g_blocks = 0;
double g_savingSince = 0;
CModuleMeter::Times g_times;

void* Counted(void* block) {
  if (block) ++g_blocks;
  return block;
}

void* __cdecl Malloc(size_t size) {
  return Counted(Original<void* __cdecl(size_t)>(kMalloc)(size));
}

void* __cdecl Calloc(size_t count, size_t size) {
  return Counted(Original<void* __cdecl(size_t, size_t)>(kCalloc)(count, size));
}

void* __cdecl Realloc(void* block, size_t size) {
  void* moved = Original<void* __cdecl(void*, size_t)>(kRealloc)(block, size);
  if (!block && moved) ++g_blocks;
  if (block && size == 0) --g_blocks;
  return moved;
}

void __cdecl Free(void* block) {
  if (block) --g_blocks;
  Original<void __cdecl(void*)>(kFree)(block);
}

char* __cdecl Strdup(const char* text) {
  char* copy = Original<char* __cdecl(const char*)>(kStrdup)(text);
  return static_cast<char*>(Counted(copy));
}

HRESULT WINAPI ClassFromProgId(const wchar_t* progId, CLSID* classId) {
  g_savingSince = MillisecondsNow();
  return Original<HRESULT WINAPI(const wchar_t*, CLSID*)>(kClsidFromProgId)(progId, classId);
}

BOOL WINAPI MoveFileReplacement(LPCSTR from, LPCSTR to, DWORD flags) {
  const BOOL moved = Original<BOOL WINAPI(LPCSTR, LPCSTR, DWORD)>(kMoveFileExA)(from, to, flags);
  const DWORD error = GetLastError();
  g_times.saving += MillisecondsNow() - g_savingSince;
  SetLastError(error);
  return moved;
}

template <Index index, typename Result, typename... Arguments>
Result WINAPI WindowReplacement(Arguments... arguments) {
  const double since = MillisecondsNow();
  const Result result = Original<Result WINAPI(Arguments...)>(index)(arguments...);
  g_times.windows += MillisecondsNow() - since;
  return result;
}

std::array<HookedImport, kCount> g_imports = {{
    {"malloc", AsProc(Malloc)},
    {"calloc", AsProc(Calloc)},
    {"realloc", AsProc(Realloc)},
    {"free", AsProc(Free)},
    {"_strdup", AsProc(Strdup)},
    {"CLSIDFromProgID", AsProc(ClassFromProgId)},
    {"MoveFileExA", AsProc(MoveFileReplacement)},
    {"MonitorFromWindow", AsProc(WindowReplacement<kMonitorFromWindow, HMONITOR, HWND, DWORD>)},
    {"GetMonitorInfoW", AsProc(WindowReplacement<kGetMonitorInfo, BOOL, HMONITOR, LPMONITORINFO>)},
    {"SetWindowPos",
     AsProc(WindowReplacement<kSetWindowPos, BOOL, HWND, HWND, int, int, int, int, UINT>)},
    {"ShowWindow", AsProc(WindowReplacement<kShowWindow, BOOL, HWND, int>)},
    {"RedrawWindow", AsProc(WindowReplacement<kRedrawWindow, BOOL, HWND, const RECT*, HRGN, UINT>)},
    {"SetForegroundWindow", AsProc(WindowReplacement<kSetForegroundWindow, BOOL, HWND>)},
    {"PeekMessageW", AsProc(WindowReplacement<kPeekMessage, BOOL, LPMSG, HWND, UINT, UINT, UINT>)},
    {"DispatchMessageW", AsProc(WindowReplacement<kDispatchMessage, LRESULT, const MSG*>)},
}};

}  // namespace

void CModuleMeter::Watch(HMODULE module) {
  g_blocks = 0;
  g_times = {};
  for (HookedImport& import : g_imports)
    import.Hook(module);
}

void CModuleMeter::Forget() {
  for (HookedImport& import : g_imports)
    import.Unhook();
}

int64_t CModuleMeter::Blocks() {
  return g_blocks;
}

CModuleMeter::Times CModuleMeter::SoFar() {
  return g_times;
}

}  // namespace quor::workbench
