#ifndef QUOR_WORKBENCH_SCENARIO_STAGE_H
#define QUOR_WORKBENCH_SCENARIO_STAGE_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

// Records that commands exchange with the stages of workbench/host, on which they act. Texts are
// UTF-8.

// Calls are counted from 1, the next one; lastCall 0 means that all calls from firstCall on fail.
struct FailingCalls {
  unsigned firstCall = 1;
  unsigned lastCall = 1;
  uint32_t status = 0;  // an SI_STATUS, or an HRESULT for the object model
};

// Serial number, description, link name, vendor id, product id; nothing for a string that cannot be
// read.
using DeviceStrings = std::array<std::optional<std::string>, 5>;

struct ControlView {
  std::string id;    // tag of a command-bar control or id of a ribbon control
  std::string role;  // see RoleOf; empty for the items of a menu
  std::string kind;  // "combo box", "button", "menu"
  std::string caption;
  std::string text;  // of a combo box
  bool enabled = false;
  bool visible = false;
  bool picture = false;
  std::vector<ControlView> items;  // of a menu; of a combo box captions only
};

// The name of a control in every host, window and language: dial, line1, line2, cell, caller-list,
// speed-dial or options; empty for any other id.
std::string RoleOf(std::string_view id);

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

}  // namespace quor::workbench

#endif
