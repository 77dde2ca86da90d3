#ifndef QUOR_WORKBENCH_HOST_ADDIN_HOST_H
#define QUOR_WORKBENCH_HOST_ADDIN_HOST_H

#include <optional>
#include <string>
#include <vector>

#include "workbench/host/extensibility.h"
#include "workbench/host/figure_stage.h"
#include "workbench/host/import_faults.h"
#include "workbench/host/message_loop.h"
#include "workbench/host/module_meter.h"
#include "workbench/host/neighbours.h"
#include "workbench/host/office_face.h"
#include "workbench/host/options_window.h"
#include "workbench/host/process_use.h"
#include "workbench/host/registered_addin.h"
#include "workbench/office/outlook.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Loads the registered add-in and calls it as Outlook does: class object, IDTExtensibility2,
// IRibbonExtensibility. At the end, checks that object and module are gone.
class CAddInHost final {
 public:
  // What it borrows must outlive it.
  CAddInHost(RegisteredAddIn addIn, CMessageLoop& loop, COutlook& outlook, COfficeFace& face,
             COptionsWindow& options, CFigureStage& figures);
  ~CAddInHost();
  CAddInHost(const CAddInHost&) = delete;
  CAddInHost& operator=(const CAddInHost&) = delete;

  // Results are the HRESULTs that the add-in returned.
  uint32_t Create();
  uint32_t Connect(int mode);
  uint32_t StartupComplete();
  uint32_t AddInsUpdate();
  uint32_t BeginShutdown();
  uint32_t Disconnect(int mode);
  // The document, or nothing if the add-in returned none.
  uint32_t CustomUi(const std::string& ribbonId, std::optional<std::string>& document);
  // `answer` is "yes", "no", a number, a text, "object" or "nothing".
  uint32_t CallRibbon(const RibbonCall& call, std::string& answer);
  bool IsConnected() const { return m_connected; }
  bool IsLoaded() const { return m_addIn != nullptr; }
  // Its DLL; may be true after the last reference to the add-in.
  bool IsInProcess() const { return m_module != nullptr; }
  // Ends the process successfully with everything still alive; calls OleUninitialize first if
  // requested.
  void EndProcess(bool uninitialized);
  void MoveIn(Neighbour neighbour) { m_neighbours.MoveIn(neighbour); }
  void NeighboursLeave() { m_neighbours.Leave(); }
  // Releases the add-in inside one of its own calls. Throws CExpectationFailure if this would
  // unload the DLL while its code runs.
  void ReleaseInside();
  // Releases the add-in. Throws CExpectationFailure if its object or module remains.
  void Unload();
  // Releases only its object.
  void ReleaseObject();
  // Makes the add-in's poll timer tick once and handles the messages posted by that.
  void Poll();
  ResourceUse Use();
  // Handles posted messages, not timers.
  void Pump() { m_loop.Pump(); }
  // Handles everything, timers included, until `done`; false if `milliseconds` pass first.
  bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds) {
    return m_loop.PumpUntil(done, milliseconds);
  }
  // Makes a Windows function that the DLL imports fail for the DLL alone, such as PostMessageA or
  // SetThreadLocale.
  void FailSystemFunction(const std::string& function, const FailingCalls& calls);

  // Shows the add-in a screen scale in per cent; 100 is the real one.
  void ShowScale(int scale);
  // Makes the add-in's timers tick as fast as possible, from its next creation on.
  void HastenTimers() { m_hasten = true; }
  // Keeps the DLL in the process for good, from the add-in's next creation on: each load of a
  // module uses up a thread-local slot, and a process has about a thousand.
  void KeepModule() { m_keepModule = true; }

  // Records the files and folders that the add-in opens for the user instead of opening them, from
  // its next creation on.
  void CatchOpening() { m_catchOpening = true; }
  const std::string& LastOpened() const { return CImportFaults::LastOpened(); }

  // The add-in's top-level windows on this thread, in no particular order.
  std::vector<HWND> Windows() const;

 private:
  IExtensibility& Loaded() const;
  // Loads the DLL and gets the class factory, without creating an object.
  HRESULT LoadClass();
  void CheckModuleGone();
  HRESULT CanUnload() const;

  RegisteredAddIn m_registered;
  CMessageLoop& m_loop;
  COutlook& m_outlook;
  COfficeFace& m_face;
  COptionsWindow& m_options;
  CFigureStage& m_figures;
  CModuleMeter m_meter;
  CImportFaults m_importFaults;
  CNeighbours m_neighbours;
  CModelPtr<CComAddIn> m_instance;
  IClassFactory* m_factory = nullptr;  // between loading the DLL and creating the object
  IExtensibility* m_addIn = nullptr;
  IRibbonDocumentSource* m_ribbonSource = nullptr;
  bool m_keepModule = false;
  HMODULE m_module = nullptr;
  bool m_connected = false;
  bool m_hasten = false;
  bool m_catchOpening = false;
};

}  // namespace quor::workbench

#endif
