#ifndef QUOR_WORKBENCH_HOST_OUTLOOK_STAGE_H
#define QUOR_WORKBENCH_HOST_OUTLOOK_STAGE_H

#include "workbench/host/application_data.h"
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
  void AddStore(const std::string& name) override {
    m_outlook.Session().Mailbox().AddSecondaryStore(WideFromUtf8(name));
  }
  void RefuseStore(const std::string& name, Refusal refusal, uint32_t status) override;
  void ShowMainWindow(bool shown) override;
  void DelayItemEvents(bool on) override { m_outlook.Session().DelayItemEvents(on); }
  void DelaySinkRelease(bool on) override { m_outlook.Model().DelaySinkRelease(on); }
  void GiveSeveralObjects(bool on) override { m_outlook.Session().GiveSeveralObjects(on); }
  void SetEntryIds(const EntryIds& style) override;
  void LoadContacts(const std::string& vcardFile) override {
    m_outlook.LoadCards(ReadNamedFile(vcardFile));
  }
  void ChangeContact(const std::string& contact, const std::string& property,
                     const std::string& value) override {
    m_outlook.ChangeContact(contact, property, value);
  }
  void AddContact(const std::string& folder, const std::string& vcard) override {
    m_outlook.AddCards(folder, vcard);
  }
  void DeleteContact(const std::string& contact) override { m_outlook.DeleteContact(contact); }
  void MoveContact(const std::string& contact, const std::string& folder) override {
    m_outlook.MoveContact(contact, folder);
  }
  std::vector<std::string> Journal() override { return m_outlook.Journal(); }
  void AddFolder(const std::string& path) override { m_outlook.AddFolder(path); }
  void DeleteFolder(const std::string& path) override { m_outlook.DeleteFolder(path); }
  void MoveFolder(const std::string& path, const std::string& parent) override {
    m_outlook.MoveFolder(path, parent);
  }
  void OpenInspector(const std::string& contact) override { m_outlook.OpenInspector(contact); }
  void CloseInspector(const std::string& contact) override { m_outlook.CloseInspector(contact); }
  void MoveInspector(const std::string& contact, const std::string& next) override {
    m_outlook.MoveInspector(contact, next);
  }
  void Select(const std::string& contact) override { m_outlook.Select({contact}); }
  void SwitchFolder(const std::string& path) override {
    m_figures.Time(&Figures::folderSwitch, [&] { m_outlook.SwitchFolder(path); });
  }
  void NewExplorer() override { m_outlook.OpenExplorer(); }
  void CloseExplorer() override {
    m_figures.Time(&Figures::shutdown, [&] { m_outlook.CloseExplorer(); });
  }
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
