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
  // How long it has been saving its settings since the last call: from asking for a document to
  // write to the new file in the place of the old one. Milliseconds.
  static double TakeSavingTime();
};

}  // namespace quor::workbench

#endif
