#ifndef QUOR_WORKBENCH_HOST_REGISTERED_ADDIN_H
#define QUOR_WORKBENCH_HOST_REGISTERED_ADDIN_H

#include <windows.h>

#include <string>

namespace quor::workbench {

// An add-in's registry entries, as Outlook reads them.
struct RegisteredAddIn {
  std::wstring progId;
  std::wstring friendlyName;
  CLSID classId = {};
  std::wstring modulePath;
};

// Finds the named add-in, or the only one under Outlook's Addins keys. Throws std::runtime_error
// with a text for the user if there is none, if it is not loaded at start-up, or if its class
// cannot be found.
RegisteredAddIn FindRegisteredAddIn(const std::wstring& progId);

// "{DA593EC2-...}".
std::wstring ClassIdText(const CLSID& classId);

}  // namespace quor::workbench

#endif
