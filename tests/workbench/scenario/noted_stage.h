#ifndef QUOR_TESTS_WORKBENCH_SCENARIO_NOTED_STAGE_H
#define QUOR_TESTS_WORKBENCH_SCENARIO_NOTED_STAGE_H

#include <map>
#include <string>
#include <vector>

#include "workbench/scenario/run.h"

namespace quor::workbench {

// A stage without an add-in: writes down what is asked of it and answers what the test lays out.
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

  // Answers.
  uint32_t result = 0;
  bool connected = false;
  bool loaded = false;
  int version = 11;
  std::vector<Bytes> written;
  std::vector<std::string> usbCalls;
  std::optional<std::string> log;
  std::optional<std::string> opened;
  std::vector<ControlView> controls;
  std::vector<WindowView> windows;
  std::vector<std::string> held;
  std::map<std::string, std::string> files;
  std::vector<std::string> xml;
  std::optional<std::string> registry;
  Figures figures;
  ResourceUse use;
  ResourceUse moreAtPoll;  // comes to `use`
  uint64_t readings = 0;

  Stage Stages() { return {*this, *this, *this, *this, *this, *this}; }

  // Plays a scenario; the failure's text, or empty.
  std::string Play(const std::string& scenario);

  uint32_t Create() override;
  uint32_t Connect(int mode) override;
  uint32_t StartupComplete() override { return Note("startup complete"); }
  uint32_t AddInsUpdate() override { return Note("add-ins update"); }
  uint32_t BeginShutdown() override { return Note("begin shutdown"); }
  uint32_t Disconnect(int mode) override;
  uint32_t CustomUi(const std::string& ribbonId, std::optional<std::string>& document) override;
  uint32_t CallRibbon(const RibbonCall& call, std::string& answer) override;
  bool IsConnected() override { return connected; }
  bool IsLoaded() override { return loaded; }
  void Unload() override;
  void Pump() override {}
  void Poll() override;
  ResourceUse Use() override { return use; }
  bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds) override;
  void FailSystemFunction(const std::string& function, const FailingCalls& calls) override;

  void InstallLibrary(Library library) override;
  void Plug(const DeviceStrings& strings) override;
  void Unplug(unsigned device) override { Note("unplug " + std::to_string(device)); }
  void Queue(const std::vector<Piece>& pieces) override;
  void ReportQueueStatus(uint32_t status, std::optional<uint32_t> count, unsigned calls) override;
  void FailFunction(const std::string& function, const FailingCalls& calls) override;
  void ShortenFunction(const std::string& function, const FailingCalls& calls,
                       unsigned bytes) override;
  void HealFunctions() override { Note("heal"); }
  CBelievableBase& Enliven() override { return m_believable; }
  void Send(const Bytes& indication) override;
  void Advance(unsigned milliseconds) override { Note("advance " + std::to_string(milliseconds)); }
  std::vector<Bytes> Written() override { return written; }
  void ForgetWritten() override { written.clear(); }
  unsigned Calls(const std::string&) override { return m_polls; }
  const std::vector<std::string>& CallTexts() override { return usbCalls; }
  void ForgetCallTexts() override { usbCalls.clear(); }
  unsigned OpenHandles() override { return 1; }

  int Version() override { return version; }
  void LoadContacts(const std::string& file) override { Note("contacts " + file); }
  void ChangeContact(const std::string& contact, const std::string& property,
                     const std::string& value) override;
  void AddContact(const std::string& folder, const std::string& vcard) override;
  void DeleteContact(const std::string& contact) override { Note("delete " + contact); }
  void MoveContact(const std::string& contact, const std::string& folder) override;
  void AddFolder(const std::string& path) override { Note("add folder " + path); }
  void DeleteFolder(const std::string& path) override { Note("delete folder " + path); }
  void OpenInspector(const std::string& contact) override { Note("open " + contact); }
  void CloseInspector(const std::string& contact) override { Note("close " + contact); }
  void Select(const std::string& contact) override { Note("select " + contact); }
  void SwitchFolder(const std::string& path) override { Note("switch " + path); }
  void NewExplorer() override { Note("new explorer"); }
  void CloseExplorer() override { Note("close explorer"); }
  void FireQuit() override { Note("quit event"); }
  void FailMember(const std::string& member, const FailingCalls& calls) override;
  void HealMembers() override { Note("heal members"); }
  void DuringMember(const std::string& member, unsigned nth, std::function<void()> action) override;
  std::vector<std::string> Held() override { return held; }

  std::vector<ControlView> Controls(const std::string&) override { return controls; }
  void Click(const std::string& inspector, const std::vector<std::string>& path) override;
  void DeleteControl(const std::vector<std::string>& path) override;
  void Type(const std::string& control, const std::string& text) override;
  void Pick(const std::string& control, const std::string& item) override;
  void ShowCalendarAsTable(bool table) override { Note(table ? "table" : "days"); }
  std::vector<WindowView> Windows() override { return windows; }
  void Press(const std::string& title, const std::string& button) override;
  void Enter(const std::string& title, int field, const std::string& text) override;
  void OpenOptions() override { Note("open options"); }
  void PressKey(const std::string& title, const std::string& key) override {
    Note("key " + title + ": " + key);
  }
  void CloseWindow(const std::string& title) override { Note("close window " + title); }
  std::string Screenshot(const std::string& name) override { return name + ".png"; }
  std::string Picture(const PictureOrder& order) override;

  void WriteFile(const std::string& path, const std::string& content) override;
  void CopyIn(const std::string& from, const std::string& path) override;
  void MakeFolder(const std::string& path) override { Note("folder " + path); }
  void RemoveApplicationData() override { Note("no application data"); }
  std::optional<std::string> ReadFile(const std::string& path) override;
  std::vector<std::string> ListFiles() override;
  std::optional<std::string> ReadLog() override { return log; }
  std::optional<std::string> LastOpened() override { return opened; }
  std::vector<std::string> ReadXml(const std::string&, const std::string&) override { return xml; }
  void WatchXml(const std::string& path) override { Note("watch " + path); }
  uint64_t EndWatch() override { return readings; }
  std::optional<std::string> ReadRegistry(const std::string&, const std::string&) override {
    return registry;
  }

  Figures Take() override { return figures; }

  void Do(const std::function<void()>& action) override { action(); }

  void Command(const Statement&) override {}
  void Say(const std::string& text) override { Note("say " + text); }
  void Show(const std::string& text) override { Note("show " + text); }
  void Failure(const std::string& text) override { m_failure = text; }

 private:
  uint32_t Note(std::string note) {
    notes.push_back(std::move(note));
    return result;
  }

  unsigned m_polls = 0;
  CBelievableBase m_believable{*this};
  std::string m_failure;
};

}  // namespace quor::workbench

#endif
