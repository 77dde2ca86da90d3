#include "module/application_data_folder.h"

#include <windows.h>

#include <shlobj.h>

namespace quor {

std::string ApplicationDataFolder() {
  char folder[MAX_PATH] = "";
  const HRESULT result =
      SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
  return SUCCEEDED(result) ? folder : "";
}

}  // namespace quor
