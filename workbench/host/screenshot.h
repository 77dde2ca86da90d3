#ifndef QUOR_WORKBENCH_HOST_SCREENSHOT_H
#define QUOR_WORKBENCH_HOST_SCREENSHOT_H

#include <string>

namespace quor::workbench {

// Whether anything is shown: Wine without a display draws nowhere.
bool HasScreen();

// Saves the screen as PNG. Returns the path, or an empty text if there is no screen.
std::string SaveScreenshot(const std::string& path);

}  // namespace quor::workbench

#endif
