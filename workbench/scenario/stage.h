#ifndef QUOR_WORKBENCH_SCENARIO_STAGE_H
#define QUOR_WORKBENCH_SCENARIO_STAGE_H

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "workbench/base/base_frames.h"
#include "workbench/base/believable_base.h"
#include "workbench/siusbxp/simulated_base.h"

namespace quor::workbench {

// What a scenario acts on. The Windows side implements it with the real add-in DLL, the simulated
// base and the stand-in Outlook; tests of the language implement it with notes of what was asked.
// Texts are UTF-8. What cannot be done because the scenario asks for something that is not there
// (no such contact, no such button) throws CScenarioError.

// Bytes that reach the receive queue `delay` milliseconds after the piece before them.
struct Piece {
  Bytes bytes;
  unsigned delay = 0;
};

// Calls are counted from 1, beginning with the next one; lastCall 0 means from firstCall on for
// ever.
struct FailingCalls {
  unsigned firstCall = 1;
  unsigned lastCall = 1;
  uint32_t status = 0;  // an SI_STATUS, or an HRESULT for the object model
};

// Serial number, description, link name, vendor id, product id; nothing for one that cannot be
// read.
using DeviceStrings = std::array<std::optional<std::string>, 5>;

class IBaseStage {
 public:
  enum class Library { Present, Missing, Old };

  // The USB library that the add-in will find; before the add-in is loaded.
  virtual void InstallLibrary(Library library) = 0;
  virtual void Plug(const DeviceStrings& strings) = 0;
  virtual void Unplug(unsigned device) = 0;
  virtual void Queue(const std::vector<Piece>& pieces) = 0;
  // The queue status that SI_CheckRXQueue reports instead of the true one, for so many calls.
  virtual void ReportQueueStatus(uint32_t status, std::optional<uint32_t> count,
                                 unsigned calls) = 0;
  virtual void FailFunction(const std::string& function, const FailingCalls& fault) = 0;
  // SI_Read or SI_Write succeeds but moves at most so many bytes.
  virtual void ShortenFunction(const std::string& function, const FailingCalls& calls,
                               unsigned bytes) = 0;
  virtual void HealFunctions() = 0;
  // Lets time pass at the base: what was queued with a delay arrives.
  virtual void Advance(unsigned milliseconds) = 0;
  // Bytes of each SI_Write call that is not forgotten, refused ones left out.
  virtual std::vector<Bytes> Written() = 0;
  virtual void ForgetWritten() = 0;
  // From now on the base answers requests by itself, as the one at the panel does.
  virtual CBelievableBase& Enliven() = 0;
  virtual unsigned Calls(const std::string& function) = 0;
  // Every call so far that is not forgotten: "SI_Write(#1, 2B 31 0D) = 0, 3" is a call with its
  // arguments, status and results.
  virtual const std::vector<std::string>& CallTexts() = 0;
  virtual void ForgetCallTexts() = 0;
  virtual unsigned OpenHandles() = 0;
  // Devices that were open when the library was freed, over all of the run.
  virtual unsigned FreedWhileOpen() = 0;
  virtual void SetManners(const DriverManners& manners) = 0;

 protected:
  ~IBaseStage() = default;
};

struct ControlView {
  std::string id;    // tag of a command-bar control, id of a ribbon control
  std::string kind;  // "combo box", "button", "menu"
  std::string caption;
  std::string text;  // of a combo box
  bool enabled = false;
  bool visible = false;
  bool picture = false;
  std::vector<ControlView> items;  // of a menu; of a combo box only captions
};

struct WindowView {
  std::string title;
  std::string className;
  bool visible = false;
  std::vector<std::string>
      texts;  // of its child windows, from the first; disabled ones in brackets
};

// Whether a scenario means this window by `name`: its title, its class, or its title and, after
// " with ", a text that one of its controls shows.
bool IsCalled(const WindowView& window, const std::string& name);

// How a picture of the main window is to be taken.
struct PictureOrder {
  std::string name;
  std::vector<std::string> menu;  // opened before; empty: none
  int scale = 100;                // per cent
  bool dark = false;              // Office's dark theme, which only the ribbon has
};

class IScreenStage {
 public:
  // The controls of the main window, or of the inspector that shows the named item.
  virtual std::vector<ControlView> Controls(const std::string& inspector) = 0;
  virtual void Click(const std::string& inspector, const std::vector<std::string>& path) = 0;
  // The user takes a control off a command bar of the main window.
  virtual void DeleteControl(const std::vector<std::string>& path) = 0;
  virtual void Type(const std::string& control, const std::string& text) = 0;
  virtual void Pick(const std::string& control, const std::string& item) = 0;
  // A calendar folder has two views, each with a ribbon tab of its own.
  virtual void ShowCalendarAsTable(bool table) = 0;
  // Outlook's options, with the pages of its add-ins.
  virtual void OpenOptions() = 0;
  // Windows are named as IsCalled says.
  virtual std::vector<WindowView> Windows() = 0;
  virtual void Press(const std::string& title, const std::string& button) = 0;
  virtual void Enter(const std::string& title, int field, const std::string& text) = 0;
  // "Tab", "Shift+Tab", "Alt+l", or a text that is typed; and handles it.
  virtual void PressKey(const std::string& title, const std::string& key) = 0;
  virtual void CloseWindow(const std::string& title) = 0;
  // Returns the path of the picture; empty where there is no screen.
  virtual std::string Screenshot(const std::string& name) = 0;
  // Draws the main window into a file, screen or none; returns the path.
  virtual std::string Picture(const PictureOrder& order) = 0;

 protected:
  ~IScreenStage() = default;
};

// What the entry IDs look like that are given from now on, and whether a move changes them.
struct EntryIds {
  bool isLower = false;
  bool isLong = false;
  bool isChanging = false;
};

class IOutlookStage {
 public:
  virtual int Version() = 0;
  virtual void AddStore(const std::string& name) = 0;
  // The store's Folders.Item, EntryID or Name fails from now on.
  enum class Refusal { None, Item, EntryId, Name };
  virtual void RefuseStore(const std::string& name, Refusal refusal, uint32_t status) = 0;
  virtual void ShowMainWindow(bool shown) = 0;
  // Item events come on a later pump of messages instead of inside the change.
  virtual void DelayItemEvents(bool on) = 0;
  // A source keeps its reference to a sink until a later pump of messages.
  virtual void DelaySinkRelease(bool on) = 0;
  // Each time a folder or an item is asked for there is another object for it.
  virtual void GiveSeveralObjects(bool on) = 0;
  virtual void SetEntryIds(const EntryIds& style) = 0;
  virtual void LoadContacts(const std::string& vcardFile) = 0;
  virtual void ChangeContact(const std::string& contact, const std::string& property,
                             const std::string& value) = 0;
  virtual void AddContact(const std::string& folder, const std::string& vcard) = 0;
  virtual void DeleteContact(const std::string& contact) = 0;
  virtual void MoveContact(const std::string& contact, const std::string& folder) = 0;
  // The entries of the journal folder, a line each.
  virtual std::vector<std::string> Journal() = 0;
  virtual void AddFolder(const std::string& path) = 0;
  virtual void DeleteFolder(const std::string& path) = 0;
  virtual void OpenInspector(const std::string& contact) = 0;
  virtual void CloseInspector(const std::string& contact) = 0;
  virtual void ActivateInspector(const std::string& contact) = 0;
  // The window of one contact moves on to another.
  virtual void MoveInspector(const std::string& contact, const std::string& next) = 0;
  virtual void Select(const std::string& contact) = 0;
  virtual void SwitchFolder(const std::string& path) = 0;
  virtual void NewExplorer() = 0;
  virtual void CloseExplorer() = 0;
  virtual void CloseFirstExplorer() = 0;
  virtual void FireQuit() = 0;
  virtual void SetPace(unsigned microseconds) = 0;  // what each call of a member takes more
  // Calls of one member, "Folders.Count" say; of every one if the name is empty.
  virtual void FailMember(const std::string& member, const FailingCalls& fault) = 0;
  virtual void HealMembers() = 0;
  // Runs an action in the middle of the nth call of a member from now.
  virtual void DuringMember(const std::string& member, unsigned nth,
                            std::function<void()> action) = 0;
  // One line for each object, sink and window that the add-in still has.
  virtual std::vector<std::string> Held() = 0;

 protected:
  ~IOutlookStage() = default;
};

// What the process holds at a moment.
struct ResourceUse {
  int64_t blocks = 0;  // of memory, allocated by the add-in's code
  int64_t bytes = 0;   // of memory, by everything in the process
  int64_t handles = 0;
  std::optional<int64_t> gdiObjects;  // nothing where the system does not tell
  int64_t windows = 0;                // of Outlook's thread, their children included
};

// A callback of the ribbon documents, to be called whatever Outlook's state.
struct RibbonCall {
  enum class Form { Value, Reference, VariantReference };  // how arguments are handed over

  std::string callback;
  std::string control;  // an id; "null", or "foreign" for an object that is no control
  std::optional<int> index;
  std::optional<std::string> text;
  Form form = Form::Value;
};

// Loading the add-in and calling it as Outlook does.
// What another add-in does on Outlook's thread.
enum class Neighbour {
  NeverValidates,    // a window whose WM_PAINT comes for ever
  InvalidatesAgain,  // one that invalidates itself while it paints
  MessageHook,       // a WH_GETMESSAGE hook that looks at the queue itself
  ModalLoop,         // a message loop of its own, until the neighbours leave
};

class IHostStage {
 public:
  // Results are the HRESULTs as the add-in returned them.
  virtual uint32_t Create() = 0;
  virtual uint32_t Connect(int mode) = 0;
  virtual uint32_t StartupComplete() = 0;
  virtual uint32_t AddInsUpdate() = 0;
  virtual uint32_t BeginShutdown() = 0;
  virtual uint32_t Disconnect(int mode) = 0;
  // The document, or nothing where the add-in gave none.
  virtual uint32_t CustomUi(const std::string& ribbonId, std::optional<std::string>& document) = 0;
  // `answer` as a text: "yes", "no", a number, a text, "object", "nothing".
  virtual uint32_t CallRibbon(const RibbonCall& call, std::string& answer) = 0;
  virtual bool IsConnected() = 0;
  virtual bool IsLoaded() = 0;
  virtual bool IsInProcess() = 0;  // its DLL; also after the last reference to the add-in
  // Lets the add-in go. Throws CExpectationFailure when its object or its module stays.
  virtual void Unload() = 0;
  // Only releases its object.
  virtual void ReleaseObject() = 0;

  // The add-in's poll timer ticks once, now, and what is posted by that is handled.
  virtual void Poll() = 0;
  virtual ResourceUse Use() = 0;

  // The process ends, good, with all that is alive; after OleUninitialize if that is wanted.
  virtual void EndProcess(bool uninitialized) = 0;
  virtual void MoveIn(Neighbour neighbour) = 0;
  virtual void NeighboursLeave() = 0;

  // Handles what is posted, timers excepted.
  virtual void Pump() = 0;
  // Handles everything, timers included, until `done`; false when `milliseconds` pass first.
  virtual bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds) = 0;
  // Makes a Windows function that the DLL imports fail for the DLL alone: PostMessageA,
  // SetThreadLocale.
  virtual void FailSystemFunction(const std::string& function, const FailingCalls& fault) = 0;

 protected:
  ~IHostStage() = default;
};

class IEvidenceStage {
 public:
  // In the run's own application-data folder; paths are relative to it.
  virtual void WriteFile(const std::string& path, const std::string& content) = 0;
  virtual void CopyIn(const std::string& from, const std::string& path) = 0;
  virtual void MakeFolder(const std::string& path) = 0;
  virtual void RemoveApplicationData() = 0;
  virtual std::optional<std::string> ReadFile(const std::string& path) = 0;
  virtual std::vector<std::string> ListFiles() = 0;
  // Today's diagnostic log; nothing where there is none.
  virtual std::optional<std::string> ReadLog() = 0;
  // What the add-in has had Windows open for the user, the last time; "." for the folder itself,
  // nothing where there was nothing yet.
  virtual std::optional<std::string> LastOpened() = 0;
  // Texts of the nodes at an XPath in an XML file. Throws CExpectationFailure where it is not
  // well-formed.
  virtual std::vector<std::string> ReadXml(const std::string& path, const std::string& xpath) = 0;
  // From now on another thread reads the XML file again and again.
  virtual void WatchXml(const std::string& path) = 0;
  // Ends that; returns how often it was read. Throws CExpectationFailure when it was not whole
  // once.
  virtual uint64_t EndWatch() = 0;
  // Value as text, REG_DWORD in decimal; nothing where key or value is missing. `key` begins
  // "HKLM\\", "HKCU\\" or "HKCR\\"; an empty name is the default value.
  virtual std::optional<std::string> ReadRegistry(const std::string& key,
                                                  const std::string& name) = 0;

 protected:
  ~IEvidenceStage() = default;
};

// What was measured since the last time it was taken; what did not happen is left out.
struct Figures {
  struct Work {
    uint64_t calls = 0;
    double microsecondsInModel = 0;
    double microsecondsInWindows = 0;  // the system's, in showing and painting them
    double microsecondsInAddIn = 0;
    unsigned messages = 0;
    double longestMilliseconds = 0;  // in one message
    double begun = 0, ended = 0;     // the first and the last of them, by a clock of milliseconds
  };
  // One call: from the tick that reads its caller ID to the window that shows it.
  struct Caller {
    double milliseconds = 0;
    // Of those, in saving the settings, in showing the window, in Outlook's objects.
    double savingMilliseconds = 0;
    double windowMilliseconds = 0;
    double outlookMilliseconds = 0;
    unsigned messages = 0;  // handled on the way
  };
  std::vector<Caller> callers;
  // Milliseconds.
  std::optional<double> connection;
  std::optional<double> shutdown;
  std::optional<double> folderSwitch;
  std::optional<Work> scan;
  std::optional<Work> messages;  // all that the add-in posts to itself: redraws among it
  uint64_t ribbonCallbacks = 0;
  uint64_t ribbonInvalidations = 0;
  double ribbonMicroseconds = 0;  // in callbacks
};

class IFigureStage {
 public:
  virtual Figures Take() = 0;

 protected:
  ~IFigureStage() = default;
};

struct Stage {
  IHostStage& host;
  IBaseStage& base;
  IOutlookStage& outlook;
  IScreenStage& screen;
  IEvidenceStage& evidence;
  IFigureStage& figures;
};

}  // namespace quor::workbench

#endif
