#ifndef QUOR_WORKBENCH_UI_WINDOW_FACE_H
#define QUOR_WORKBENCH_UI_WINDOW_FACE_H

#include <string>
#include <vector>

#include "workbench/ui/face.h"

// Plain records of what one window of the stand-in shows, and the user's actions in it.

namespace quor::workbench {

enum class Skin { Toolbars, Ribbon };  // Outlook up to 12, from 14 on
enum class Theme { Light, Dark };      // of the ribbon face
enum class Module { Mail, Calendar, Contacts, Tasks, Notes, Journal };

struct FolderRow {
  std::wstring name;
  int depth = 0;
  Module kind = Module::Mail;
  bool selected = false;
};

struct ListRow {
  std::vector<std::wstring> cells;
  bool selected = false;
};

// One field of the contact or message in the reading pane.
struct CardLine {
  std::wstring label;
  std::wstring value;
};

enum class Led { Off, Green, Amber, Red };

// The simulated base in a panel at the right edge.
struct PanelLine {
  std::wstring text;
  Led led = Led::Off;
};
struct PanelButton {
  int id = 0;  // passed back when it is pressed
  std::wstring caption;
  bool enabled = true;
  std::wstring hint;  // what it does
};
struct PanelFace {
  std::wstring title;
  std::vector<PanelLine> lines;
  std::vector<PanelButton> buttons;
};

struct WindowFace {
  std::wstring title;  // "Inbox - Outlook"
  Skin skin = Skin::Ribbon;
  Theme theme = Theme::Light;
  Module module = Module::Mail;
  bool inspector = false;  // a contact window: no folders, no list
  std::vector<BarFace> bars;
  RibbonTabFace ribbon;  // the active tab
  std::vector<FolderRow> folders;
  std::vector<std::wstring> columns;
  std::vector<ListRow> rows;
  std::wstring cardTitle;
  std::vector<CardLine> card;
  PanelFace panel;  // no lines: no panel
  std::wstring status;
};

// Supplies a window's content and performs its user's actions. Actions may throw CUserActionError;
// the window then shows the reason in its status line.
class IWindowContent {
 public:
  virtual WindowFace Face() = 0;
  // The items of a menu that the user opens.
  virtual std::vector<ControlFace> MenuItems(int handle) = 0;
  virtual void ClickControl(int handle) = 0;
  virtual void EnterText(int handle, const std::wstring& text) = 0;
  virtual void PickEntry(int handle, size_t entry) = 0;
  virtual void SelectFolder(size_t row) = 0;
  virtual void SelectRow(size_t row) = 0;
  virtual void OpenRow(size_t row) = 0;
  virtual void PressPanelButton(int id) = 0;
  virtual void Close() = 0;  // the user closes the window

 protected:
  ~IWindowContent() = default;
};

}  // namespace quor::workbench

#endif
