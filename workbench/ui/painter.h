#ifndef QUOR_WORKBENCH_UI_PAINTER_H
#define QUOR_WORKBENCH_UI_PAINTER_H

#include <string>
#include <vector>

#include "workbench/ui/canvas.h"
#include "workbench/ui/window_face.h"

namespace quor::workbench {

// Something in the window that can be clicked. Later areas lie above earlier ones.
struct HitArea {
  enum class Kind { Button, Menu, ComboText, ComboArrow, ComboEntry, Folder, Row, PanelButton };
  Kind kind = Kind::Button;
  Rect rect;
  int handle = 0;    // of the control, or the panel button's id
  size_t index = 0;  // of the entry, folder or row
  int depth = 0;     // of menus: how many are open around it
  bool enabled = true;
};

// A menu or a combo box's list that lies open.
struct OpenPart {
  int handle = 0;
  std::vector<ControlFace> items;  // of a menu
};

struct SceneOptions {
  int width = 0;  // pixels at 100 %, title bar left out
  int height = 0;
  bool titleBar = false;
  std::vector<OpenPart> open;  // each inside the one before
  std::wstring notice;         // for the status line
};

constexpr int kTitleHeight = 30;

// Draws a window; returns what can be clicked in it.
std::vector<HitArea> PaintWindow(CCanvas& canvas, const WindowFace& face,
                                 const SceneOptions& options);

}  // namespace quor::workbench

#endif
