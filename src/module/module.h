#ifndef QUOR_MODULE_MODULE_H
#define QUOR_MODULE_MODULE_H

#include <windows.h>

#include <string>

namespace quor {

// The DLL that contains this code: its path, and whether Windows may unload it.

HINSTANCE ModuleInstance() noexcept;

// The full path, whatever its length. Empty if Windows does not report it.
std::wstring ModulePath();

// Whether the process is exiting: its other threads were terminated at arbitrary points, and other
// modules may already be shut down. Do not close or free anything then; the system does.
bool ProcessIsEnding() noexcept;

// Each COM object and each IClassFactory::LockServer(TRUE) counts as one lock. The DLL may be
// unloaded when there is none.
void LockModule() noexcept;
void UnlockModule() noexcept;
long ModuleLockCount() noexcept;

// A member of every COM object: holds one lock during the object's lifetime.
class CModuleLock {
 public:
  CModuleLock() noexcept { LockModule(); }
  ~CModuleLock() { UnlockModule(); }
  CModuleLock(const CModuleLock&) = delete;
  CModuleLock& operator=(const CModuleLock&) = delete;
};

}  // namespace quor

#endif
