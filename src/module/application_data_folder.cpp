#include "module/application_data_folder.h"

#include <windows.h>

#include <shlobj.h>

#include "text/ansi.h"

namespace quor {

std::string ApplicationDataFolder() {
  char folder[MAX_PATH] = "";
  const HRESULT result =
      SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
  return SUCCEEDED(result) ? folder : "";
}

bool IsApplicationDataOutsideCodePage() {
  wchar_t folder[MAX_PATH] = L"";
  const HRESULT result =
      SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder);
  return SUCCEEDED(result) && WideFromAnsi(AnsiFromWide(folder)) != folder;
}

}  // namespace quor
