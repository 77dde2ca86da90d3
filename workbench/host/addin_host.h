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
#include "workbench/host/registered_addin.h"
#include "workbench/office/value.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// What Outlook hands to an add-in, and what it does with the ribbon it gets back.
class IAddInSurroundings {
 public:
  virtual IDispatch* Application() = 0;
  virtual IDispatch* AddInInstance() = 0;
  // The document of a ribbon and the object that answers its callbacks.
  virtual void OnRibbon(const std::string& ribbonId, const std::string& document,
                        IUnknown* callbacks) = 0;
  // A control of its ribbon, or what RibbonCall::control says instead. A reference of the
  // receiver's.
  virtual CValue RibbonControl(const std::string& id) = 0;
  // The add-in goes: nothing of its may be kept.
  virtual void OnAddInGone() = 0;
  // Whether event sources still hold sinks that are no longer advised.
  virtual bool HoldsOldSinks() = 0;

 protected:
  ~IAddInSurroundings() = default;
};

// Loads the registered add-in and calls it as Outlook does: class object, IDTExtensibility2,
// IRibbonExtensibility, and at the end the proof that object and module are gone.
class CAddInHost final : public IHostStage {
 public:
  CAddInHost(RegisteredAddIn addIn, CMessageLoop& loop, IAddInSurroundings& surroundings,
             CFigureStage& figures);
  ~CAddInHost();
  CAddInHost(const CAddInHost&) = delete;
  CAddInHost& operator=(const CAddInHost&) = delete;

  uint32_t Create() override;
  uint32_t Connect(int mode) override;
  uint32_t StartupComplete() override;
  uint32_t AddInsUpdate() override;
  uint32_t BeginShutdown() override;
  uint32_t Disconnect(int mode) override;
  uint32_t CustomUi(const std::string& ribbonId, std::optional<std::string>& document) override;
  uint32_t CallRibbon(const RibbonCall& call, std::string& answer) override;
  bool IsConnected() override { return m_connected; }
  bool IsLoaded() override { return m_addIn != nullptr; }
  bool IsInProcess() override { return m_module != nullptr; }
  void EndProcess(bool uninitialized) override;
  void MoveIn(Neighbour neighbour) override { m_neighbours.MoveIn(neighbour); }
  void NeighboursLeave() override { m_neighbours.Leave(); }
  // Lets the add-in go in the middle of a call that it makes. Throws CExpectationFailure when its
  // DLL would be unloaded under its own code.
  void ReleaseInside();
  void Unload() override;
  void ReleaseObject() override;
  void Poll() override;
  ResourceUse Use() override;
  void Pump() override { m_loop.Pump(); }
  bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds) override;
  void FailSystemFunction(const std::string& function, const FailingCalls& calls) override;

  // The add-in sees a screen of so many per cent; at 100 the true one.
  void ShowScale(int scale);
  // The add-in's timers run as fast as they can, from the next time it is made.
  void HastenTimers() { m_hasten = true; }
  // The DLL stays in the process for good, from the next time the add-in is made: each load of a
  // module leaves a thread-local slot of its runtime behind, and a process has about a thousand.
  void KeepModule() { m_keepModule = true; }

  // What the add-in has Windows open for the user is only noted, from the next time it is made.
  void CatchOpening() { m_catchOpening = true; }
  const std::string& LastOpened() const { return CImportFaults::LastOpened(); }

  const RegisteredAddIn& AddIn() const { return m_registered; }
  // The module of the loaded add-in; null before and after.
  HMODULE Module() const { return m_module; }
  // Top-level windows of the add-in's on this thread, in no particular order.
  std::vector<HWND> Windows() const;

 private:
  IExtensibility& Loaded() const;
  // Loads the DLL and asks it for its class, without making an object yet.
  HRESULT LoadClass();
  void CheckModuleGone();
  HRESULT CanUnload() const;

  RegisteredAddIn m_registered;
  CMessageLoop& m_loop;
  IAddInSurroundings& m_surroundings;
  CFigureStage& m_figures;
  CModuleMeter m_meter;
  CImportFaults m_importFaults;
  CNeighbours m_neighbours;
  IClassFactory* m_factory = nullptr;  // between loading the DLL and making the object
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
