#include "workbench/host/process_use.h"

// clang-format off
#include <windows.h>
#include <psapi.h>
// clang-format on

#include <algorithm>
#include <optional>
#include <vector>

#include "workbench/host/window_lists.h"

namespace quor::workbench {

namespace {

// Wine does not supply the first.
int64_t PrivateBytes() {
  PROCESS_MEMORY_COUNTERS_EX counters = {};
  counters.cb = sizeof(counters);
  GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                       sizeof(counters));
  return static_cast<int64_t>(std::max(counters.PrivateUsage, counters.PagefileUsage));
}

// For functions missing in winternl.h and the import library.
template <typename Function>
Function* NtFunction(const char* name) {
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  return reinterpret_cast<Function*>(GetProcAddress(library, name));
}

struct HandleEntry {
  void* object;
  ULONG_PTR process;
  ULONG_PTR handle;
  ULONG access;
  USHORT backTrace;
  USHORT type;
  ULONG attributes;
  ULONG reserved;
};

struct HandleList {
  ULONG_PTR count;
  ULONG_PTR reserved;
  HandleEntry first;
};

// Where the process cannot query its own count, as under Wine, its handles are counted in the
// system-wide list.
int64_t Handles() {
  DWORD own = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &own) && own != 0) return own;
  constexpr ULONG kExtendedHandles = 64;
  constexpr auto kTooSmall = static_cast<LONG>(0xC0000004);
  const auto query =
      NtFunction<LONG WINAPI(ULONG, void*, ULONG, ULONG*)>("NtQuerySystemInformation");
  std::vector<std::byte> buffer(1 << 16);
  ULONG size = 0;
  LONG status = kTooSmall;
  while (status == kTooSmall) {
    buffer.resize(buffer.size() * 2);
    status = query(kExtendedHandles, buffer.data(), static_cast<ULONG>(buffer.size()), &size);
  }
  if (status != 0) return 0;
  const auto* list = reinterpret_cast<const HandleList*>(buffer.data());
  const HandleEntry* entries = &list->first;
  int64_t count = 0;
  for (ULONG_PTR i = 0; i < list->count; ++i)
    count += entries[i].process == GetCurrentProcessId();
  return count;
}

struct GdiEntry {
  uint64_t object;
  uint16_t process;
  uint16_t lock;
  uint16_t unique;
  uint8_t type;
  uint8_t flags;
  uint64_t user;
};

// The same for GDI objects. Wine keeps this list where Windows does, but not for 32-bit processes.
std::optional<int64_t> GdiObjects() {
  const DWORD own = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  if (own != 0) return own;
  if constexpr (sizeof(void*) != 8) return std::nullopt;
  constexpr size_t kTableInBlock = 0xF8;
  constexpr size_t kMostObjects = 65536;
  const char* block = NtFunction<const char * WINAPI()>("RtlGetCurrentPeb")();
  const auto* entries = *reinterpret_cast<const GdiEntry* const*>(block + kTableInBlock);
  if (!entries) return std::nullopt;
  return std::count_if(entries, entries + kMostObjects,
                       [](const GdiEntry& entry) { return entry.type != 0; });
}

int64_t Windows() {
  const std::vector<HWND> windows = ThreadWindows();
  size_t count = windows.size();
  for (const HWND window : windows)
    count += DescendantsOf(window).size();
  return static_cast<int64_t>(count);
}

}  // namespace

ResourceUse MeasureProcess() {
  ResourceUse use;
  use.bytes = PrivateBytes();
  use.handles = Handles();
  use.gdiObjects = GdiObjects();
  use.windows = Windows();
  return use;
}

bool AreHeapsSound() {
  constexpr DWORD kMostHeaps = 256;
  HANDLE heaps[kMostHeaps];
  const DWORD count = std::min(GetProcessHeaps(kMostHeaps, heaps), kMostHeaps);
  return std::all_of(heaps, heaps + count,
                     [](HANDLE heap) { return HeapValidate(heap, 0, nullptr) != FALSE; });
}

}  // namespace quor::workbench
