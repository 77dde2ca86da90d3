#ifndef QUOR_WORKBENCH_HOST_BASE_STAGE_H
#define QUOR_WORKBENCH_HOST_BASE_STAGE_H

#include <windows.h>

#include <string>
#include <vector>

#include "workbench/scenario/stage.h"
#include "workbench/siusbxp/base_simulator.h"

namespace quor::workbench {

// Installs the simulated USB library beside the add-in's DLL, where the add-in looks first, and
// controls the base behind it.
class CBaseStage final : public IBaseStage, ICallObserver, IIndicationLine {
 public:
  // The library is copied to `addInFolder`; both folders have no backslash at the end. Throws
  // std::runtime_error if that folder holds another vendor's library.
  CBaseStage(std::wstring addInFolder, std::wstring workbenchFolder);
  ~CBaseStage();
  CBaseStage(const CBaseStage&) = delete;
  CBaseStage& operator=(const CBaseStage&) = delete;

  CBaseSimulator& Base() const;  // throws CScenarioError if there is no library

  void InstallLibrary(Library library) override;
  void Plug(const DeviceStrings& strings) override;
  void Unplug(unsigned device) override;
  void Queue(const std::vector<Piece>& pieces) override;
  void ReportQueueStatus(uint32_t status, std::optional<uint32_t> count, unsigned calls) override;
  void FailFunction(const std::string& function, const FailingCalls& calls) override;
  void ShortenFunction(const std::string& function, const FailingCalls& calls,
                       unsigned bytes) override;
  void HealFunctions() override;
  CBelievableBase& Enliven() override;
  bool IsAlive() const { return m_alive; }
  std::vector<Bytes> Written() override;
  void ForgetWritten() override;
  unsigned Calls(const std::string& function) override;
  const std::vector<std::string>& CallTexts() override { return m_callTexts; }
  void ForgetCallTexts() override { m_callTexts.clear(); }
  unsigned OpenHandles() override { return m_base ? m_base->OpenHandles() : 0; }
  unsigned FreedWhileOpen() override { return m_base ? m_base->FreedWhileOpen() : 0; }
  void SetManners(const DriverManners& manners) override { Base().SetManners(manners); }

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
