#ifndef QUOR_WORKBENCH_HOST_SCREENSHOT_H
#define QUOR_WORKBENCH_HOST_SCREENSHOT_H

#include <string>

namespace quor::workbench {

// Saves what is on the screen as PNG; returns the path, or nothing where there is no screen.
std::string SaveScreenshot(const std::string& path);

}  // namespace quor::workbench

#endif
