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
// base and the stand-in Outlook; tests of the language implement it with recorded calls. Texts are
// UTF-8. An action on something that does not exist (contact, button) throws CScenarioError.

// Bytes that reach the receive queue `delay` milliseconds after the previous piece.
struct Piece {
  Bytes bytes;
  unsigned delay = 0;
};

// Calls are counted from 1, the next one; lastCall 0 means that all calls from firstCall on fail.
struct FailingCalls {
  unsigned firstCall = 1;
  unsigned lastCall = 1;
  uint32_t status = 0;  // an SI_STATUS, or an HRESULT for the object model
};

// Serial number, description, link name, vendor id, product id; nothing for a string that cannot be
// read.
using DeviceStrings = std::array<std::optional<std::string>, 5>;

class IBaseStage {
 public:
  enum class Library { Present, Missing, Old };

  // Installs the USB library for the add-in; call before the add-in is loaded.
  virtual void InstallLibrary(Library library) = 0;
  virtual void Plug(const DeviceStrings& strings) = 0;
  virtual void Unplug(unsigned device) = 0;
  virtual void Queue(const std::vector<Piece>& pieces) = 0;
  // Makes the next `calls` calls of SI_CheckRXQueue report this queue status.
  virtual void ReportQueueStatus(uint32_t status, std::optional<uint32_t> count,
                                 unsigned calls) = 0;
  virtual void FailFunction(const std::string& function, const FailingCalls& fault) = 0;
  // SI_Read or SI_Write succeeds but moves at most this many bytes.
  virtual void ShortenFunction(const std::string& function, const FailingCalls& calls,
                               unsigned bytes) = 0;
  virtual void HealFunctions() = 0;
  // Bytes of each accepted SI_Write call since the last ForgetWritten.
  virtual std::vector<Bytes> Written() = 0;
  virtual void ForgetWritten() = 0;
  // From now on the base answers requests by itself, like the one with the panel.
  virtual CBelievableBase& Enliven() = 0;
  virtual unsigned Calls(const std::string& function) = 0;
  // All calls since the last ForgetCallTexts, each with its arguments, status and results:
  // "SI_Write(#1, 2B 31 0D) = 0, 3".
  virtual const std::vector<std::string>& CallTexts() = 0;
  virtual void ForgetCallTexts() = 0;
  virtual unsigned OpenHandles() = 0;
  // Number of devices still open when the library was freed, over the whole run.
  virtual unsigned FreedWhileOpen() = 0;
  virtual void SetManners(const DriverManners& manners) = 0;

 protected:
  ~IBaseStage() = default;
};

struct ControlView {
  std::string id;    // tag of a command-bar control or id of a ribbon control
  std::string kind;  // "combo box", "button", "menu"
  std::string caption;
  std::string text;  // of a combo box
  bool enabled = false;
  bool visible = false;
  bool picture = false;
  std::vector<ControlView> items;  // of a menu; of a combo box captions only
};

struct WindowView {
  std::string title;
  std::string className;
  bool visible = false;
  std::vector<std::string> texts;  // texts of the child windows in order; disabled ones in brackets
};

// Whether `name` matches a window: its title, its class, or its title followed by " with " and the
// text of one of its controls.
bool IsCalled(const WindowView& window, const std::string& name);

// How to draw a picture of the main window, or of the inspector with the named item.
struct PictureOrder {
  std::string name;
  std::string inspector;          // empty: the main window
  std::vector<std::string> menu;  // opened first; empty: none
  int scale = 100;                // per cent
  bool dark = false;              // Office's dark theme, which only the ribbon has
};

// How a text of a window is explained: to the mouse and to a screen reader.
struct ExplainedText {
  std::string tooltip;
  std::string description;
};

class IScreenStage {
 public:
  // The controls of the main window, or of the inspector with the named item.
  virtual std::vector<ControlView> Controls(const std::string& inspector) = 0;
  virtual void Click(const std::string& inspector, const std::vector<std::string>& path) = 0;
  // The user removes a control from a command bar of the main window.
  virtual void DeleteControl(const std::vector<std::string>& path) = 0;
  virtual void Type(const std::string& control, const std::string& text) = 0;
  virtual void Pick(const std::string& control, const std::string& item) = 0;
  // A calendar folder has two views, each with its own ribbon tab.
  virtual void ShowCalendarAsTable(bool table) = 0;
  // Opens Outlook's options with the add-ins' pages.
  virtual void OpenOptions() = 0;
  // Windows are named as for IsCalled.
  virtual std::vector<WindowView> Windows() = 0;
  virtual std::string AccessibleName(const std::string& title) = 0;
  virtual ExplainedText Explanation(const std::string& title, const std::string& text) = 0;
  virtual void PointAt(const std::string& title, const std::string& text) = 0;
  virtual void Press(const std::string& title, const std::string& button) = 0;
  virtual void Enter(const std::string& title, int field, const std::string& text) = 0;
  // Sends and handles "Tab", "Shift+Tab", "Alt+l" or a typed text.
  virtual void PressKey(const std::string& title, const std::string& key) = 0;
  virtual void CloseWindow(const std::string& title) = 0;
  // A picture of the screen, or of one window with its tooltip. Returns the path; empty if there is
  // no screen.
  virtual std::string Screenshot(const std::string& name, const std::string& title) = 0;
  // Draws a window of Outlook into a file, with or without a screen; returns the path.
  virtual std::string Picture(const PictureOrder& order) = 0;

 protected:
  ~IScreenStage() = default;
};

// The form of entry IDs assigned from now on, and whether a move changes them.
struct EntryIds {
  bool isLower = false;
  bool isLong = false;
  bool isChanging = false;
};

class IOutlookStage {
 public:
  virtual int Version() = 0;
  virtual void AddStore(const std::string& name) = 0;
  // Makes the store's Folders.Item, EntryID or Name fail from now on.
  enum class Refusal { None, Item, EntryId, Name };
  virtual void RefuseStore(const std::string& name, Refusal refusal, uint32_t status) = 0;
  virtual void ShowMainWindow(bool shown) = 0;
  // Raises item events when messages are pumped, not inside the change.
  virtual void DelayItemEvents(bool on) = 0;
  // Sources keep references to unadvised sinks until messages are pumped.
  virtual void DelaySinkRelease(bool on) = 0;
  // Each query for a folder or item returns a new object.
  virtual void GiveSeveralObjects(bool on) = 0;
  virtual void SetEntryIds(const EntryIds& style) = 0;
  virtual void LoadContacts(const std::string& vcardFile) = 0;
  virtual void ChangeContact(const std::string& contact, const std::string& property,
                             const std::string& value) = 0;
  virtual void AddContact(const std::string& folder, const std::string& vcard) = 0;
  virtual void DeleteContact(const std::string& contact) = 0;
  virtual void MoveContact(const std::string& contact, const std::string& folder) = 0;
  // The entries of the journal folder, one line each.
  virtual std::vector<std::string> Journal() = 0;
  virtual void AddFolder(const std::string& path) = 0;
  virtual void DeleteFolder(const std::string& path) = 0;
  virtual void MoveFolder(const std::string& path, const std::string& parent) = 0;
  virtual void OpenInspector(const std::string& contact) = 0;
  virtual void CloseInspector(const std::string& contact) = 0;
  // Moves the window of one contact on to another.
  virtual void MoveInspector(const std::string& contact, const std::string& next) = 0;
  virtual void Select(const std::string& contact) = 0;
  virtual void SwitchFolder(const std::string& path) = 0;
  virtual void NewExplorer() = 0;
  virtual void CloseExplorer() = 0;
  virtual void CloseFirstExplorer() = 0;
  virtual void FireQuit() = 0;
  virtual void SetPace(unsigned microseconds) = 0;  // extra time of each call of a member
  // Fails calls of one member, such as "Folders.Count"; all calls if the name is empty.
  virtual void FailMember(const std::string& member, const FailingCalls& fault) = 0;
  virtual void HealMembers() = 0;
  // Runs an action inside the nth call of a member from now on.
  virtual void DuringMember(const std::string& member, unsigned nth,
                            std::function<void()> action) = 0;
  // One line for each object, sink and window that the add-in still holds.
  virtual std::vector<std::string> Held() = 0;

 protected:
  ~IOutlookStage() = default;
};

// Resources that the process holds.
struct ResourceUse {
  int64_t blocks = 0;  // memory blocks allocated by the add-in's code
  int64_t bytes = 0;   // memory of the whole process
  int64_t handles = 0;
  std::optional<int64_t> gdiObjects;  // nothing if the system does not report it
  int64_t windows = 0;                // of Outlook's thread, child windows included
};

// A call of a ribbon callback, in any state of Outlook.
struct RibbonCall {
  enum class Form { Value, Reference, VariantReference };  // how arguments are passed

  std::string callback;
  std::string control;  // an id; "null"; or "foreign" for an object that is not a control
  std::optional<int> index;
  std::optional<std::string> text;
  Form form = Form::Value;
};

// What another add-in does on Outlook's thread.
enum class Neighbour {
  NeverValidates,    // a window whose WM_PAINT never stops
  InvalidatesAgain,  // a window that invalidates itself while painting
  MessageHook,       // a WH_GETMESSAGE hook that examines the queue
  ClosesWindows,     // asks all windows but Outlook's to close, as tools that end programs do
  ModalLoop,         // its own message loop, until the neighbours are removed
};

// Loads the add-in and calls it as Outlook does.
class IHostStage {
 public:
  // Results are the HRESULTs that the add-in returned.
  virtual uint32_t Create() = 0;
  virtual uint32_t Connect(int mode) = 0;
  virtual uint32_t StartupComplete() = 0;
  virtual uint32_t AddInsUpdate() = 0;
  virtual uint32_t BeginShutdown() = 0;
  virtual uint32_t Disconnect(int mode) = 0;
  // The document, or nothing if the add-in returned none.
  virtual uint32_t CustomUi(const std::string& ribbonId, std::optional<std::string>& document) = 0;
  // `answer` is "yes", "no", a number, a text, "object" or "nothing".
  virtual uint32_t CallRibbon(const RibbonCall& call, std::string& answer) = 0;
  virtual bool IsConnected() = 0;
  virtual bool IsLoaded() = 0;
  virtual bool IsInProcess() = 0;  // its DLL; may be true after the last reference to the add-in
  // Releases the add-in. Throws CExpectationFailure if its object or module remains.
  virtual void Unload() = 0;
  // Releases only its object.
  virtual void ReleaseObject() = 0;

  // Makes the add-in's poll timer tick once and handles the messages posted by that.
  virtual void Poll() = 0;
  virtual ResourceUse Use() = 0;
  virtual bool AreHeapsSound() = 0;

  // Ends the process successfully with everything still alive; calls OleUninitialize first if
  // requested.
  virtual void EndProcess(bool uninitialized) = 0;
  virtual void MoveIn(Neighbour neighbour) = 0;
  virtual void NeighboursLeave() = 0;

  // Handles posted messages, not timers.
  virtual void Pump() = 0;
  // Handles everything, timers included, until `done`; false if `milliseconds` pass first.
  virtual bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds) = 0;
  // Makes a Windows function that the DLL imports fail for the DLL alone, such as PostMessageA or
  // SetThreadLocale.
  virtual void FailSystemFunction(const std::string& function, const FailingCalls& fault) = 0;

 protected:
  ~IHostStage() = default;
};

class IEvidenceStage {
 public:
  // Paths are relative to the run's application-data folder.
  virtual void WriteFile(const std::string& path, const std::string& content) = 0;
  virtual void CopyIn(const std::string& from, const std::string& path) = 0;
  virtual void MakeFolder(const std::string& path) = 0;
  virtual void RemoveApplicationData() = 0;
  virtual std::optional<std::string> ReadFile(const std::string& path) = 0;
  virtual std::vector<std::string> ListFiles() = 0;
  // Today's diagnostic log; nothing if there is none.
  virtual std::optional<std::string> ReadLog() = 0;
  // What the add-in last made Windows open for the user: "." for the folder itself, nothing if it
  // has opened nothing.
  virtual std::optional<std::string> LastOpened() = 0;
  // Texts of the nodes at an XPath in an XML file. Throws CExpectationFailure if it is not
  // well-formed.
  virtual std::vector<std::string> ReadXml(const std::string& path, const std::string& xpath) = 0;
  // From now on another thread reads the XML file again and again.
  virtual void WatchXml(const std::string& path) = 0;
  // Ends this; returns the number of readings. Throws CExpectationFailure if the file was ever
  // incomplete.
  virtual uint64_t EndWatch() = 0;
  // The value as text, REG_DWORD in decimal; nothing if the key or value is missing. `key` begins
  // with "HKLM\\", "HKCU\\" or "HKCR\\"; an empty name is the default value.
  virtual std::optional<std::string> ReadRegistry(const std::string& key,
                                                  const std::string& name) = 0;

 protected:
  ~IEvidenceStage() = default;
};

// Measurements since they were last taken; empty for what did not happen.
struct Figures {
  struct Work {
    uint64_t calls = 0;
    double microsecondsInModel = 0;
    double microsecondsInWindows = 0;  // spent by the system in showing and painting
    double microsecondsInAddIn = 0;
    unsigned messages = 0;
    double longestMilliseconds = 0;  // of one message
    double begun = 0, ended = 0;     // times of the first and the last, in milliseconds
  };
  // One call: from the tick that reads its caller ID until the window appears.
  struct Caller {
    double milliseconds = 0;
    // Parts of this time: saving the settings, showing the window, calls of Outlook's objects.
    double savingMilliseconds = 0;
    double windowMilliseconds = 0;
    double outlookMilliseconds = 0;
    unsigned messages = 0;  // handled meanwhile
  };
  std::vector<Caller> callers;
  // The longest, in milliseconds.
  struct Delays {
    double key = 0;   // from a key stroke until Outlook's thread takes it
    double poll = 0;  // by which a poll of the base is late
  };
  std::optional<Delays> delays;
  // Milliseconds.
  std::optional<double> connection;
  std::optional<double> shutdown;
  std::optional<double> folderSwitch;
  std::optional<Work> scan;
  std::optional<Work> messages;  // all messages that the add-in posts to itself, redraws included
  uint64_t ribbonCallbacks = 0;
  uint64_t ribbonInvalidations = 0;
  double ribbonMicroseconds = 0;  // in callbacks
};

class IFigureStage {
 public:
  // Measures delays until the figures are taken.
  virtual void WatchDelays() = 0;
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
