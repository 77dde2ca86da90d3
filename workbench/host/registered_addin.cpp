#include "workbench/host/registered_addin.h"

// clang-format off
#include <windows.h>
#include <objbase.h>
// clang-format on

#include <optional>
#include <stdexcept>

#include "workbench/office/value.h"

namespace quor::workbench {

namespace {

constexpr wchar_t kAddInsKey[] = L"Software\\Microsoft\\Office\\Outlook\\Addins";
constexpr DWORD kLoadAtStart = 2;
constexpr DWORD kConnected = 1;

std::optional<DWORD> ReadNumber(HKEY root, const std::wstring& key, const wchar_t* name) {
  DWORD value = 0;
  DWORD size = sizeof(value);
  const LSTATUS status =
      RegGetValueW(root, key.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
  if (status != ERROR_SUCCESS) return std::nullopt;
  return value;
}

std::wstring ReadText(HKEY root, const std::wstring& key, const wchar_t* name) {
  wchar_t value[MAX_PATH] = {};
  DWORD size = sizeof(value);
  RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ | RRF_ZEROONFAILURE, nullptr, value, &size);
  return value;
}

std::wstring SubkeyAt(HKEY key, DWORD index) {
  wchar_t name[256] = {};
  DWORD length = 256;
  RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
  return name;
}

// The only add-in under the key; if there are several, the user must choose.
std::wstring OnlyAddIn(HKEY root) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, kAddInsKey, 0, KEY_READ, &key) != ERROR_SUCCESS) return {};
  std::wstring found = SubkeyAt(key, 0);
  const bool several = !SubkeyAt(key, 1).empty();
  RegCloseKey(key);
  if (several) {
    throw std::runtime_error(
        "several add-ins are registered with Outlook; choose one with --addin");
  }
  return found;
}

}  // namespace

std::wstring ClassIdText(const CLSID& classId) {
  wchar_t text[64] = {};
  StringFromGUID2(classId, text, 64);
  return text;
}

RegisteredAddIn FindRegisteredAddIn(const std::wstring& progId) {
  RegisteredAddIn addIn;
  addIn.progId = progId;
  if (addIn.progId.empty()) addIn.progId = OnlyAddIn(HKEY_CURRENT_USER);
  if (addIn.progId.empty()) addIn.progId = OnlyAddIn(HKEY_LOCAL_MACHINE);
  if (addIn.progId.empty()) {
    throw std::runtime_error(
        "no add-in is registered with Outlook; register the DLL with regsvr32");
  }
  const std::string name = Utf8FromWide(addIn.progId);
  const std::wstring key = std::wstring(kAddInsKey) + L"\\" + addIn.progId;
  addIn.friendlyName = ReadText(HKEY_LOCAL_MACHINE, key, L"FriendlyName");
  // The user's value takes precedence over the machine's.
  std::optional<DWORD> behavior = ReadNumber(HKEY_CURRENT_USER, key, L"LoadBehavior");
  if (!behavior) behavior = ReadNumber(HKEY_LOCAL_MACHINE, key, L"LoadBehavior");
  if (!behavior) throw std::runtime_error(name + " has no LoadBehavior");
  constexpr DWORD kBoth = kLoadAtStart | kConnected;
  if ((*behavior & kBoth) != kBoth) {
    throw std::runtime_error(name + " is disabled: LoadBehavior " + std::to_string(*behavior));
  }
  if (FAILED(CLSIDFromProgID(addIn.progId.c_str(), &addIn.classId))) {
    throw std::runtime_error(name + " has no class");
  }
  const std::wstring server = L"CLSID\\" + ClassIdText(addIn.classId) + L"\\InprocServer32";
  addIn.modulePath = ReadText(HKEY_CLASSES_ROOT, server, nullptr);
  if (addIn.modulePath.empty()) {
    throw std::runtime_error(name + " is not registered for this bitness");
  }
  return addIn;
}

}  // namespace quor::workbench
