#ifndef QUOR_WORKBENCH_HOST_BASE_STAGE_H
#define QUOR_WORKBENCH_HOST_BASE_STAGE_H

#include <windows.h>

#include <string>
#include <vector>

#include "workbench/base/believable_base.h"
#include "workbench/scenario/stage.h"
#include "workbench/siusbxp/base_simulator.h"

namespace quor::workbench {

// Installs the simulated USB library beside the add-in's DLL, where the add-in looks first, and
// controls the base behind it.
class CBaseStage final : ICallObserver, IIndicationLine {
 public:
  enum class Library { Present, Missing, Old };

  // The library is copied to `addInFolder`; both folders have no backslash at the end. Throws
  // std::runtime_error if that folder holds another vendor's library.
  CBaseStage(std::wstring addInFolder, std::wstring workbenchFolder);
  ~CBaseStage();
  CBaseStage(const CBaseStage&) = delete;
  CBaseStage& operator=(const CBaseStage&) = delete;

  CBaseSimulator& Base() const;  // throws CScenarioError if there is no library

  // Installs the USB library for the add-in; call before the add-in is loaded.
  void InstallLibrary(Library library);
  void Plug(const DeviceStrings& strings);
  void Unplug(unsigned device);
  // From now on the base answers requests by itself, like the one with the panel.
  CBelievableBase& Enliven();
  bool IsAlive() const { return m_alive; }
  // Bytes of each accepted SI_Write call since the last ForgetWritten.
  std::vector<Bytes> Written();
  void ForgetWritten();
  unsigned Calls(UsbFunction function);
  // All calls since the last ForgetCallTexts: "SI_Write(#1, 2B 31 0D) = 0, 3".
  const std::vector<std::string>& CallTexts() { return m_callTexts; }
  void ForgetCallTexts() { m_callTexts.clear(); }
  unsigned OpenHandles() { return m_base ? m_base->OpenHandles() : 0; }
  // Devices still open when the library was freed, over the whole run.
  unsigned FreedWhileOpen() { return m_base ? m_base->FreedWhileOpen() : 0; }

  void OnCall(const UsbCall& call) noexcept override;
  void Send(const Bytes& indication) override;

 private:
  std::wstring LibraryPath() const;

  std::wstring m_addInFolder;
  std::wstring m_workbenchFolder;
  CBaseSimulator* m_base = nullptr;
  std::vector<std::string> m_callTexts;
  CBelievableBase m_believable{*this};
  bool m_alive = false;
};

}  // namespace quor::workbench

#endif
