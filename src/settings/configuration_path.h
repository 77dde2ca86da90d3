#ifndef QUOR_SETTINGS_CONFIGURATION_PATH_H
#define QUOR_SETTINGS_CONFIGURATION_PATH_H

#include <string>

#include "module/diagnostic_log.h"

namespace quor {

// Returns the full path of the configuration file, "Microsoft\AddIns\vex_cfg.xml" in the user's
// application-data folder, in the ANSI code page. Creates the folder if it is missing. Empty if the
// folder is unknown or cannot be created; the latter is logged.
std::string PrepareConfigurationPath(CDiagnosticLog& log);

}  // namespace quor

#endif
