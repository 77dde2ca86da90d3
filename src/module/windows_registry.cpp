#include "module/windows_registry.h"

#include <optional>

namespace quor {
namespace {

uint32_t Code(LSTATUS status) noexcept {
  return static_cast<uint32_t>(status);
}

uint32_t Removed(LSTATUS status) noexcept {
  return status == ERROR_FILE_NOT_FOUND ? 0 : Code(status);
}

// Closes the key at the end of the scope.
class COpenKey {
 public:
  COpenKey(HKEY root, const std::wstring& path, REGSAM access) noexcept
      : m_status(RegOpenKeyExW(root, path.c_str(), 0, access, &m_key)) {}
  ~COpenKey() {
    if (m_status == ERROR_SUCCESS) RegCloseKey(m_key);
  }
  COpenKey(const COpenKey&) = delete;
  COpenKey& operator=(const COpenKey&) = delete;

  LSTATUS Status() const noexcept { return m_status; }
  HKEY Get() const noexcept { return m_key; }

 private:
  HKEY m_key = nullptr;
  LSTATUS m_status;
};

LSTATUS Write(HKEY key, const std::wstring& name, const std::wstring& text) noexcept {
  return RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS Write(HKEY key, const std::wstring& name, uint32_t number) noexcept {
  return RegSetValueExW(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                        sizeof number);
}

// The flag that selects the other bitness's registry. Nothing on a 32-bit Windows, which ignores
// the flag and would show our own keys.
std::optional<REGSAM> OtherView() noexcept {
  if constexpr (sizeof(void*) == 8) return KEY_WOW64_32KEY;
  BOOL onWindows64 = FALSE;
  if (!IsWow64Process(GetCurrentProcess(), &onWindows64) || !onWindows64) return std::nullopt;
  return KEY_WOW64_64KEY;
}

}  // namespace

// Do not write to HKEY_CLASSES_ROOT: if the user has a key of that name, Windows changes the user's
// key, and a registration for all users would apply to this user only.
HKEY CWindowsRegistry::Root() const noexcept {
  return m_scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

std::wstring CWindowsRegistry::Path(const RegistryKey& key) const {
  return key.root == RegistryRoot::Classes ? L"Software\\Classes\\" + key.path : key.path;
}

uint32_t CWindowsRegistry::CreateKey(const RegistryKey& key) {
  HKEY created = nullptr;
  const LSTATUS status =
      RegCreateKeyExW(Root(), Path(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                      nullptr, &created, nullptr);
  if (status == ERROR_SUCCESS) RegCloseKey(created);
  return Code(status);
}

uint32_t CWindowsRegistry::SetValue(const RegistryKey& key, const RegistryValue& value) {
  const COpenKey open(Root(), Path(key), KEY_SET_VALUE);
  if (open.Status() != ERROR_SUCCESS) return Code(open.Status());
  return Code(std::visit([&](const auto& data) { return Write(open.Get(), value.name, data); },
                         value.data));
}

uint32_t CWindowsRegistry::RemoveValue(const RegistryKey& key, const RegistryValue& value) {
  const COpenKey open(Root(), Path(key), KEY_SET_VALUE);
  if (open.Status() != ERROR_SUCCESS) return Removed(open.Status());
  return Removed(RegDeleteValueW(open.Get(), value.name.c_str()));
}

uint32_t CWindowsRegistry::RemoveKeyWhenEmpty(const RegistryKey& key) {
  {
    const COpenKey open(Root(), Path(key), KEY_QUERY_VALUE);
    if (open.Status() != ERROR_SUCCESS) return Removed(open.Status());
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS status = RegQueryInfoKeyW(open.Get(), nullptr, nullptr, nullptr, &keys, nullptr,
                                            nullptr, &values, nullptr, nullptr, nullptr, nullptr);
    if (status != ERROR_SUCCESS || keys != 0 || values != 0) return Code(status);
  }
  return Removed(RegDeleteKeyW(Root(), Path(key).c_str()));
}

uint32_t CWindowsRegistry::RemoveKeyWithContents(const RegistryKey& key) {
  return Removed(RegDeleteTreeW(Root(), Path(key).c_str()));
}

// Below the classes, each bitness has its own copy of CLSID only; the rest of the user's hive is
// shared.
bool CWindowsRegistry::IsInCommon(const RegistryKey& key) const {
  if (key.root != RegistryRoot::Classes) return m_scope == RegistrationScope::User;
  return !key.path.starts_with(L"CLSID\\");
}

bool CWindowsRegistry::IsInOtherBitness(const RegistryKey& key) const {
  if (IsInCommon(key)) return false;
  const std::optional<REGSAM> view = OtherView();
  if (!view) return false;
  return COpenKey(Root(), Path(key), KEY_QUERY_VALUE | *view).Status() == ERROR_SUCCESS;
}

}  // namespace quor
