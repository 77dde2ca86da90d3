#ifndef QUOR_MODULE_MODULE_H
#define QUOR_MODULE_MODULE_H

#include <windows.h>

#include <string>

namespace quor {

// The DLL this code is linked into: where it is, and whether Windows may unload it.

HINSTANCE ModuleInstance() noexcept;

// The full path, of whatever length. Empty when Windows does not tell.
std::wstring ModulePath();

// Whether the process is in its last steps: its other threads are gone wherever they were, and
// other modules may have been torn down already. Nothing may be closed or freed then; the system
// does it.
bool ProcessIsEnding() noexcept;

// Every living COM object of ours and every IClassFactory::LockServer(TRUE) counts as one lock. The
// DLL may be unloaded when there is none.
void LockModule() noexcept;
void UnlockModule() noexcept;
long ModuleLockCount() noexcept;

// Held as a member by every COM object: its lifetime is one lock.
class CModuleLock {
 public:
  CModuleLock() noexcept { LockModule(); }
  ~CModuleLock() { UnlockModule(); }
  CModuleLock(const CModuleLock&) = delete;
  CModuleLock& operator=(const CModuleLock&) = delete;
};

}  // namespace quor

#endif
