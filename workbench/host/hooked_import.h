#ifndef QUOR_WORKBENCH_HOST_HOOKED_IMPORT_H
#define QUOR_WORKBENCH_HOST_HOOKED_IMPORT_H

#include <windows.h>

namespace quor::workbench {

// A function that a module imports by name, and what the module calls instead.
struct HookedImport {
  const char* name;
  FARPROC replacement;
  FARPROC original = nullptr;
  FARPROC* slot = nullptr;  // where the module stores the address; null while not hooked

  // Makes the loaded module call the replacement; false if it does not import the function.
  bool Hook(HMODULE module);
  // Does nothing while not hooked. Call it before the module is unloaded.
  void Unhook();
};

template <typename Function>
FARPROC AsProc(Function* function) {
  return reinterpret_cast<FARPROC>(function);
}

}  // namespace quor::workbench

#endif
