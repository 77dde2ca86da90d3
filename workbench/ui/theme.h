#ifndef QUOR_WORKBENCH_UI_THEME_H
#define QUOR_WORKBENCH_UI_THEME_H

#include "workbench/ui/canvas.h"
#include "workbench/ui/window_face.h"

namespace quor::workbench {

struct Palette {
  Colour title;  // title bar
  Colour titleText;
  Colour bar;     // behind toolbars or the ribbon, at the top
  Colour barEnd;  // at the bottom
  Colour barEdge;
  Colour tabText;
  Colour accent;  // selected tab, marker of the selected folder, default markers
  Colour text;
  Colour faintText;  // group names, disabled captions
  Colour separator;
  Colour field;  // behind editable text and lists
  Colour fieldEdge;
  Colour pane;  // behind folders and panel
  Colour paneHead;
  Colour paneHeadEnd;
  Colour paneHeadText;
  Colour selection;
  Colour selectionText;
  Colour menu;
  Colour menuGutter;  // under the pictures of menu items
  Colour menuEdge;
  Colour highlight;  // behind an open menu's control
  Colour highlightEdge;
  Colour status;
  Colour statusText;
};

const Palette& PaletteOf(Skin skin, Theme theme) noexcept;

}  // namespace quor::workbench

#endif
