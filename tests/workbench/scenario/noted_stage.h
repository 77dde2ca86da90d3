#ifndef QUOR_TESTS_WORKBENCH_SCENARIO_NOTED_STAGE_H
#define QUOR_TESTS_WORKBENCH_SCENARIO_NOTED_STAGE_H

#include <map>
#include <string>
#include <vector>

#include "workbench/scenario/run.h"

namespace quor::workbench {

// A stage without an add-in: records its calls and returns what the test has set.
class CNotedStage final : public IHostStage,
                          public IBaseStage,
                          public IOutlookStage,
                          public IScreenStage,
                          public IEvidenceStage,
                          public IFigureStage,
                          public ITranscript,
                          public IExecutor,
                          IIndicationLine {
 public:
  std::vector<std::string> notes;

  // Results.
  uint32_t result = 0;
  int version = 11;
  std::vector<Bytes> written;
  std::vector<std::string> usbCalls;
  std::optional<std::string> log;
  std::optional<std::string> opened;
  std::vector<ControlView> controls;
  std::vector<WindowView> windows;
  ExplainedText explained;
  std::vector<std::string> held;
  std::map<std::string, std::string> files;
  std::vector<std::string> xml;
  std::optional<std::string> registry;
  ResourceUse use;
  ResourceUse moreAtPoll;  // added to `use`

  Stage Stages() { return {*this, *this, *this, *this, *this, *this}; }

  // Plays a scenario; returns the failure's text, or an empty text.
  std::string Play(const std::string& scenario);

  uint32_t Create() override { return Note("create"); }
  uint32_t Connect(int) override { return Note("connect"); }
  uint32_t StartupComplete() override { return result; }
  uint32_t AddInsUpdate() override { return result; }
  uint32_t BeginShutdown() override { return result; }
  uint32_t Disconnect(int) override { return result; }
  uint32_t CustomUi(const std::string&, std::optional<std::string>&) override { return result; }
  uint32_t CallRibbon(const RibbonCall&, std::string&) override { return result; }
  bool IsConnected() override { return true; }
  bool IsLoaded() override { return false; }
  bool IsInProcess() override { return false; }
  void EndProcess(bool) override {}
  void MoveIn(Neighbour) override {}
  void NeighboursLeave() override {}
  void Unload() override {}
  void ReleaseObject() override {}
  void Pump() override {}
  void Poll() override;
  ResourceUse Use() override { return use; }
  bool AreHeapsSound() override { return true; }
  bool PumpUntil(const std::function<bool()>& done, unsigned) override { return done(); }
  void FailSystemFunction(const std::string&, const FailingCalls&) override {}

  void InstallLibrary(Library) override {}
  void Plug(const DeviceStrings&) override { Note("plug"); }
  void Unplug(unsigned) override { Note("unplug"); }
  void Queue(const std::vector<Piece>&) override {}
  void ReportQueueStatus(uint32_t, std::optional<uint32_t>, unsigned) override {}
  void FailFunction(const std::string&, const FailingCalls&) override {}
  void ShortenFunction(const std::string&, const FailingCalls&, unsigned) override {}
  void HealFunctions() override {}
  CBelievableBase& Enliven() override { return m_believable; }
  void Send(const Bytes&) override {}
  void Advance(unsigned) override {}
  std::vector<Bytes> Written() override { return written; }
  void ForgetWritten() override { written.clear(); }
  unsigned Calls(const std::string&) override { return 0; }
  const std::vector<std::string>& CallTexts() override { return usbCalls; }
  void ForgetCallTexts() override { usbCalls.clear(); }
  unsigned OpenHandles() override { return 1; }
  unsigned FreedWhileOpen() override { return 0; }
  void SetManners(const DriverManners&) override {}

  int Version() override { return version; }
  void RefuseStore(const std::string&, Refusal, uint32_t) override {}
  void ShowMainWindow(bool) override {}
  void DelayItemEvents(bool) override {}
  void DelaySinkRelease(bool) override {}
  void GiveSeveralObjects(bool) override {}
  void AddStore(const std::string&) override {}
  void SetEntryIds(const EntryIds&) override {}
  void LoadContacts(const std::string&) override {}
  void ChangeContact(const std::string&, const std::string&, const std::string&) override {}
  void AddContact(const std::string&, const std::string&) override {}
  void DeleteContact(const std::string& contact) override { Note("delete " + contact); }
  void MoveContact(const std::string&, const std::string&) override {}
  std::vector<std::string> Journal() override { return {}; }
  void AddFolder(const std::string&) override {}
  void DeleteFolder(const std::string&) override {}
  void MoveFolder(const std::string&, const std::string&) override {}
  void OpenInspector(const std::string&) override {}
  void CloseInspector(const std::string&) override {}
  void ActivateInspector(const std::string&) override {}
  void MoveInspector(const std::string&, const std::string&) override {}
  void Select(const std::string&) override {}
  void SwitchFolder(const std::string&) override {}
  void NewExplorer() override {}
  void CloseExplorer() override {}
  void CloseFirstExplorer() override {}
  void FireQuit() override {}
  void SetPace(unsigned) override {}
  void FailMember(const std::string&, const FailingCalls&) override {}
  void HealMembers() override {}
  void DuringMember(const std::string&, unsigned, std::function<void()> action) override {
    action();
  }
  std::vector<std::string> Held() override { return held; }

  std::vector<ControlView> Controls(const std::string&) override { return controls; }
  void Click(const std::string&, const std::vector<std::string>&) override {}
  void DeleteControl(const std::vector<std::string>&) override {}
  void Type(const std::string&, const std::string&) override {}
  void Pick(const std::string&, const std::string&) override {}
  void ShowCalendarAsTable(bool) override {}
  std::vector<WindowView> Windows() override { return windows; }
  std::string AccessibleName(const std::string& title) override { return title; }
  ExplainedText Explanation(const std::string&, const std::string&) override { return explained; }
  void Press(const std::string&, const std::string&) override {}
  void Enter(const std::string&, int, const std::string&) override {}
  void OpenOptions() override {}
  void PressKey(const std::string&, const std::string&) override {}
  void CloseWindow(const std::string&) override {}
  void PointAt(const std::string&, const std::string&) override {}
  std::string Screenshot(const std::string& name, const std::string&) override { return name; }
  std::string Picture(const PictureOrder& order) override { return order.name; }

  void WriteFile(const std::string& path, const std::string& content) override;
  void CopyIn(const std::string&, const std::string&) override {}
  void MakeFolder(const std::string&) override {}
  void RemoveApplicationData() override {}
  std::optional<std::string> ReadFile(const std::string& path) override;
  std::vector<std::string> ListFiles() override;
  std::optional<std::string> ReadLog() override { return log; }
  std::optional<std::string> LastOpened() override { return opened; }
  std::vector<std::string> ReadXml(const std::string&, const std::string&) override { return xml; }
  void WatchXml(const std::string&) override {}
  uint64_t EndWatch() override { return 0; }
  std::optional<std::string> ReadRegistry(const std::string&, const std::string&) override {
    return registry;
  }

  void WatchDelays() override {}
  Figures Take() override { return {}; }

  void Do(const std::function<void()>& action) override { action(); }

  void Command(const Statement&) override {}
  void Say(const std::string& text) override { Note("say " + text); }
  void Show(const std::string&) override {}
  void Failure(const std::string& text) override { m_failure = text; }

 private:
  uint32_t Note(std::string note) {
    notes.push_back(std::move(note));
    return result;
  }

  CBelievableBase m_believable{*this};
  std::string m_failure;
};

}  // namespace quor::workbench

#endif
