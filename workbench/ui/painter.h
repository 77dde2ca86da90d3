#ifndef QUOR_WORKBENCH_UI_PAINTER_H
#define QUOR_WORKBENCH_UI_PAINTER_H

#include <string>
#include <vector>

#include "workbench/ui/canvas.h"
#include "workbench/ui/window_face.h"

namespace quor::workbench {

// A clickable part of the window. Later areas lie above earlier ones.
struct HitArea {
  enum class Kind { Button, Menu, ComboText, ComboArrow, ComboEntry, Folder, Row, PanelButton };
  Kind kind = Kind::Button;
  Rect rect;
  int handle = 0;    // of the control, or the panel button's id
  size_t index = 0;  // of the entry, folder or row
  int depth = 0;     // of menus: number of open menus around it
  bool enabled = true;
};

// An open menu or combo box list.
struct OpenPart {
  int handle = 0;
  std::vector<ControlFace> items;  // of a menu
};

struct SceneOptions {
  int width = 0;  // pixels at 100 %, without the title bar
  int height = 0;
  bool titleBar = false;
  std::vector<OpenPart> open;  // each inside the previous one
  std::wstring notice;         // for the status line
  int explained = -1;          // the panel's button whose hint is shown, or -1
};

constexpr int kTitleHeight = 30;
constexpr int kPanelWidth = 230;

// Draws a window; returns its clickable parts.
std::vector<HitArea> PaintWindow(CCanvas& canvas, const WindowFace& face,
                                 const SceneOptions& options);

}  // namespace quor::workbench

#endif
