#ifndef QUOR_WORKBENCH_HOST_SCREENSHOT_H
#define QUOR_WORKBENCH_HOST_SCREENSHOT_H

#include <string>

namespace quor::workbench {

// Saves the screen as PNG. Returns the path, or an empty text if there is no screen.
std::string SaveScreenshot(const std::string& path);

}  // namespace quor::workbench

#endif
