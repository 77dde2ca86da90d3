#ifndef QUOR_WORKBENCH_UI_FACE_H
#define QUOR_WORKBENCH_UI_FACE_H

#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

// Plain records of what a window shows. Command bars and ribbon fill them; drawing code and
// scenarios read them.

namespace quor::workbench {

// Premultiplied 0xAARRGGBB, top row first.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<uint32_t> colours;
};
using PixelsPtr = std::shared_ptr<const Pixels>;

enum class ControlKind { Button, ComboBox, Menu };
const wchar_t* KindName(ControlKind kind) noexcept;  // "button", "combo box", "menu"

struct ControlFace {
  ControlKind kind = ControlKind::Button;
  int handle = 0;        // identifies the control for user actions; unique in its window
  std::wstring id;       // tag of a command bar's control or id of a ribbon's
  std::wstring caption;  // as supplied, with ampersands
  std::wstring text;     // in the edit part of a combo box
  bool enabled = true;
  bool visible = true;
  bool custom = true;  // otherwise one of Outlook's own
  bool hasPicture = false;
  bool hasMask = false;
  PixelsPtr picture;         // as shown, with mask or alpha applied
  bool showsCaption = true;  // of a button
  bool large = false;
  bool pressed = false;
  bool beginsGroup = false;
  int width = 0;       // pixels at 100 %; 0: its natural width
  int listWidth = -1;  // of a combo box's list; 0: as wide as the field, -1: as its longest entry
  std::vector<std::wstring> entries;  // of a combo box's list
  std::vector<ControlFace> items;     // of a menu
};

// Finds a control. Each step is an id or a caption ("Cell1") without its ampersands. The first step
// is searched at any depth, ids first; each further step among the items of the previous one. Null
// if there is none.
const ControlFace* FindFace(const std::vector<ControlFace>& faces,
                            std::span<const std::wstring> path) noexcept;
// The same by ControlFace::handle, at any depth.
const ControlFace* FindFace(const std::vector<ControlFace>& faces, int handle) noexcept;

// The caption without access-key marks: "Call from &cell" gives "Call from cell", "Tom && Co" gives
// "Tom & Co".
std::wstring PlainCaption(const std::wstring& caption);

// One toolbar.
struct BarFace {
  int handle = 0;
  std::wstring name;
  bool visible = false;
  bool enabled = true;
  bool builtIn = false;
  bool menuBar = false;
  int position = 1;  // MsoBarPosition
  int left = 0;      // pixels at 100 %
  int top = 0;
  int row = 0;
  std::vector<ControlFace> controls;
};

struct RibbonGroupFace {
  std::wstring id;
  std::wstring caption;
  bool visible = true;
  bool custom = true;
  bool hasPicture = false;
  std::wstring insertBefore;  // id of the built-in group; empty: at the end
  std::vector<ControlFace> controls;
};

struct RibbonTabFace {
  std::wstring id;  // idMso or id
  std::wstring caption;
  bool visible = true;
  std::vector<RibbonGroupFace> groups;
};

// A user could not do the action: the control is missing, disabled or not visible.
class CUserActionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quor::workbench

#endif
