#include "settings/configuration_path.h"

#include <windows.h>

#include <dbghelp.h>
#include <shlwapi.h>

#include "module/application_data_folder.h"

namespace quor {

std::string PrepareConfigurationPath(CDiagnosticLog& log) {
  const std::string applicationData = ApplicationDataFolder();
  if (applicationData.empty()) return {};
  const std::string folder = applicationData + "\\Microsoft\\AddIns";
  const std::string path = folder + "\\";
  if (!PathFileExistsA(folder.c_str()) && !MakeSureDirectoryPathExists(path.c_str())) {
    log.Write("MakeSureDirectoryPathExists failed\n");
    return {};
  }
  return path + "vex_cfg.xml";
}

}  // namespace quor
