#ifndef QUOR_WORKBENCH_HOST_MODULE_METER_H
#define QUOR_WORKBENCH_HOST_MODULE_METER_H

#include <windows.h>

#include <cstdint>

namespace quor::workbench {

// What one module takes of memory and time, seen from between it and what it imports. One module at
// a time; to be put there before anything else comes in between, and taken away after it.
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
  // Milliseconds since Watch. Saving: from asking for a document to write to the new file in the
  // place of the old one. Windows: in placing, showing, drawing and activating its own, and in
  // letting those of the thread paint while it is busy.
  struct Times {
    double saving = 0;
    double windows = 0;
  };
  static Times SoFar();
};

}  // namespace quor::workbench

#endif
