#ifndef QUOR_WORKBENCH_HOST_IMPORT_FAULTS_H
#define QUOR_WORKBENCH_HOST_IMPORT_FAULTS_H

#include <windows.h>

#include <string>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Makes Windows functions fail or do something else for one module alone, by standing between it
// and what it imports. The module must be loaded; other modules keep the true functions. One module
// at a time.
class CImportFaults {
 public:
  CImportFaults() = default;
  ~CImportFaults() { Forget(); }
  CImportFaults(const CImportFaults&) = delete;
  CImportFaults& operator=(const CImportFaults&) = delete;

  // Throws CScenarioError for a function the workbench has no stand-in for, or that the module does
  // not import. `calls.status` is the last error that the failing call leaves.
  void Fail(HMODULE module, const std::string& name, const FailingCalls& calls);
  // Every timer that the module sets from now on ticks as often as Windows can.
  void HastenTimers(HMODULE module);
  // What the module asks Windows to open for the user is noted instead: the last, in the ANSI code
  // page; empty where there was nothing.
  void CatchOpening(HMODULE module);
  static const std::string& LastOpened();
  // The screen has so many dots per inch for the module; 0: as many as it has.
  void ShowDotsPerInch(HMODULE module, int dotsPerInch);
  // The faults are over; call it before the module goes.
  static void Forget();
};

}  // namespace quor::workbench

#endif
