#ifndef QUOR_SETTINGS_CONFIGURATION_PATH_H
#define QUOR_SETTINGS_CONFIGURATION_PATH_H

#include <string>

#include "module/diagnostic_log.h"

namespace quor {

// Finds the place of the configuration file, "Microsoft\AddIns\vex_cfg.xml" in the user's
// application-data folder, and makes the folder if it is missing. The full path in the ANSI code
// page; empty when the folder is not known or cannot be made, the latter being logged.
std::string PrepareConfigurationPath(CDiagnosticLog& log);

}  // namespace quor

#endif
