#ifndef QUOR_WORKBENCH_HOST_OUTLOOK_STAGE_H
#define QUOR_WORKBENCH_HOST_OUTLOOK_STAGE_H

#include "workbench/host/figure_stage.h"
#include "workbench/office/outlook.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// The stand-in Outlook for scenarios: names for its errors, faults and accounting.
class COutlookStage final : public IOutlookStage {
 public:
  COutlookStage(COutlook& outlook, CFigureStage& figures)
      : m_outlook(outlook), m_figures(figures) {}

  int Version() override { return m_outlook.Version(); }
  void AddStore(const std::string& name) override;
  void RefuseStore(const std::string& name, Refusal refusal, uint32_t status) override;
  void ShowMainWindow(bool shown) override;
  void DelayItemEvents(bool on) override { m_outlook.Session().DelayItemEvents(on); }
  void DelaySinkRelease(bool on) override { m_outlook.Model().DelaySinkRelease(on); }
  void GiveSeveralObjects(bool on) override { m_outlook.Session().GiveSeveralObjects(on); }
  void SetEntryIds(const EntryIds& style) override;
  void LoadContacts(const std::string& vcardFile) override;
  void ChangeContact(const std::string& contact, const std::string& property,
                     const std::string& value) override;
  void AddContact(const std::string& folder, const std::string& vcard) override;
  void DeleteContact(const std::string& contact) override;
  void MoveContact(const std::string& contact, const std::string& folder) override;
  std::vector<std::string> Journal() override { return m_outlook.Journal(); }
  void AddFolder(const std::string& path) override;
  void DeleteFolder(const std::string& path) override;
  void MoveFolder(const std::string& path, const std::string& parent) override;
  void OpenInspector(const std::string& contact) override;
  void CloseInspector(const std::string& contact) override;
  void ActivateInspector(const std::string& contact) override;
  void MoveInspector(const std::string& contact, const std::string& next) override;
  void Select(const std::string& contact) override;
  void SwitchFolder(const std::string& path) override;
  void NewExplorer() override;
  void CloseExplorer() override;
  void CloseFirstExplorer() override { m_outlook.CloseFirstExplorer(); }
  void FireQuit() override {
    m_figures.Time(&Figures::shutdown, [&] { m_outlook.RaiseQuit(); });
  }
  void SetPace(unsigned microseconds) override { m_outlook.Model().SetPace(microseconds); }
  void FailMember(const std::string& member, const FailingCalls& calls) override;
  void HealMembers() override { m_outlook.Model().WithdrawAll(); }
  void DuringMember(const std::string& member, unsigned nth, std::function<void()> action) override;
  // Held objects and sinks, and misuses such as a release too many.
  std::vector<std::string> Held() override;

 private:
  COutlook& m_outlook;
  CFigureStage& m_figures;
};

}  // namespace quor::workbench

#endif
