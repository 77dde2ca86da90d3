#ifndef QUOR_WORKBENCH_HOST_SCREENSHOT_H
#define QUOR_WORKBENCH_HOST_SCREENSHOT_H

#include <windows.h>

#include <string>

namespace quor::workbench {

// Whether anything is shown: Wine without a display draws nowhere.
bool HasScreen();

// Saves the screen as PNG, or only the part with this window and the tooltips it owns. Returns the
// path, or an empty text if there is no screen.
std::string SaveScreenshot(const std::string& path, HWND window);

}  // namespace quor::workbench

#endif
