#ifndef QUOR_WORKBENCH_HOST_REGISTERED_ADDIN_H
#define QUOR_WORKBENCH_HOST_REGISTERED_ADDIN_H

#include <windows.h>

#include <string>

namespace quor::workbench {

// What the registry says of an add-in, as Outlook looks it up.
struct RegisteredAddIn {
  std::wstring progId;
  std::wstring friendlyName;
  DWORD loadBehavior = 0;  // the user's value goes before the machine's
  CLSID classId = {};
  std::wstring modulePath;
};

// The one add-in under Outlook's Addins keys, or the named one. Throws std::runtime_error, in words
// for the person at the keyboard, when there is none, when it is not to be loaded at start-up, or
// when its class leads nowhere.
RegisteredAddIn FindRegisteredAddIn(const std::wstring& progId);

}  // namespace quor::workbench

#endif
