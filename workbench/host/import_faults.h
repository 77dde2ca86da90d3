#ifndef QUOR_WORKBENCH_HOST_IMPORT_FAULTS_H
#define QUOR_WORKBENCH_HOST_IMPORT_FAULTS_H

#include <windows.h>

#include <string>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Makes Windows functions fail or behave differently for one module, by replacing entries in its
// import table. The module must be loaded; other modules are not affected. Serves one module at a
// time.
class CImportFaults {
 public:
  CImportFaults() = default;
  ~CImportFaults() { Forget(); }
  CImportFaults(const CImportFaults&) = delete;
  CImportFaults& operator=(const CImportFaults&) = delete;

  // Throws CScenarioError for a function that the workbench cannot replace or the module does not
  // import. `calls.status` is the error code that the failing call sets.
  void Fail(HMODULE module, const std::string& name, const FailingCalls& calls);
  // Makes every timer that the module sets from now on tick as often as Windows can.
  void HastenTimers(HMODULE module);
  // Records what the module asks Windows to open instead of opening it: the last path, in the ANSI
  // code page, or empty.
  void CatchOpening(HMODULE module);
  static const std::string& LastOpened();
  // Shows the module a screen of this many dots per inch; 0: the real value.
  void ShowDotsPerInch(HMODULE module, int dotsPerInch);
  // Ends the faults; call it before the module is unloaded.
  static void Forget();
};

}  // namespace quor::workbench

#endif
