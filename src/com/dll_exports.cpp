// The DLL's exports. They serve the two classes of ClassTable().
#include <windows.h>

#include <olectl.h>

#include "com/class_factory.h"
#include "module/module.h"
#include "module/module_registration.h"

using quor::RegistrationScope;

STDAPI DllCanUnloadNow() {
  return quor::ModuleLockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  return quor::GetClassFactory(clsid, iid, object);
}

STDAPI DllRegisterServer() {
  return quor::RegisterModule(RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
  return quor::UnregisterModule(RegistrationScope::Machine);
}

// "regsvr32 /n /i:user" registers for the current user only and needs no administrator; with /u it
// unregisters. Without "user" the registration is for all users.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  const bool everybody = commandLine == nullptr || *commandLine == L'\0';
  if (!everybody && lstrcmpiW(commandLine, L"user") != 0) return E_INVALIDARG;
  const auto scope = everybody ? RegistrationScope::Machine : RegistrationScope::User;
  return install ? quor::RegisterModule(scope) : quor::UnregisterModule(scope);
}
