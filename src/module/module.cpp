#include "module/module.h"

#include <atomic>

// The linker's symbol for the first byte of this module's image, whose address is the module
// handle. It makes a DllMain unnecessary.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace quor {
namespace {

std::atomic<long> g_locks{0};

}  // namespace

HINSTANCE ModuleInstance() noexcept {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length = GetModuleFileNameW(ModuleInstance(), path.data(), size);
    if (length < size) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

bool ProcessIsEnding() noexcept {
  // ntdll has exported this function since Windows XP, but no import library lists it.
  const auto shuttingDown = reinterpret_cast<BOOLEAN(NTAPI*)()>(
      GetProcAddress(GetModuleHandleW(L"ntdll"), "RtlDllShutdownInProgress"));
  return shuttingDown != nullptr && shuttingDown() != FALSE;
}

void LockModule() noexcept {
  ++g_locks;
}
void UnlockModule() noexcept {
  --g_locks;
}
long ModuleLockCount() noexcept {
  return g_locks;
}

}  // namespace quor
