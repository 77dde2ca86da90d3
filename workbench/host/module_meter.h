#ifndef QUOR_WORKBENCH_HOST_MODULE_METER_H
#define QUOR_WORKBENCH_HOST_MODULE_METER_H

#include <windows.h>

#include <cstdint>

namespace quor::workbench {

// Measures one module's memory and time by replacing entries in its import table. Serves one module
// at a time. Install it before other replacements and remove it after them.
class CModuleMeter {
 public:
  CModuleMeter() = default;
  ~CModuleMeter() { Forget(); }
  CModuleMeter(const CModuleMeter&) = delete;
  CModuleMeter& operator=(const CModuleMeter&) = delete;

  static void Watch(HMODULE module);
  static void Forget();

  // Memory blocks that the module has allocated since Watch and not freed.
  static int64_t Blocks();
  // Milliseconds since Watch. Saving: from creating the document until the new file replaces the
  // old one. Windows: placing, showing, drawing and activating the module's windows, and letting
  // other windows of the thread paint meanwhile.
  struct Times {
    double saving = 0;
    double windows = 0;
  };
  static Times SoFar();
};

}  // namespace quor::workbench

#endif
