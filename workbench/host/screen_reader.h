#ifndef QUOR_WORKBENCH_HOST_SCREEN_READER_H
#define QUOR_WORKBENCH_HOST_SCREEN_READER_H

#include <windows.h>

#include <string>

namespace quor::workbench {

// What a screen reader reads: the accessible name and description of a window.
std::string AccessibleNameOf(HWND window);
std::string AccessibleDescriptionOf(HWND window);

// The tooltip that appears when the mouse rests over the middle of a control; empty if none does.
std::string TooltipOver(HWND control);

}  // namespace quor::workbench

#endif
