#ifndef QUOR_WORKBENCH_HOST_IMPORT_SLOT_H
#define QUOR_WORKBENCH_HOST_IMPORT_SLOT_H

#include <windows.h>

namespace quor::workbench {

// Where a loaded module stores the address of a function that it imports by name; null if it does
// not.
FARPROC* FindImport(HMODULE module, const char* function);

// Makes the module call `address` from now on.
void WriteSlot(FARPROC* slot, FARPROC address);

template <typename Function>
FARPROC AsProc(Function* function) {
  return reinterpret_cast<FARPROC>(function);
}

}  // namespace quor::workbench

#endif
