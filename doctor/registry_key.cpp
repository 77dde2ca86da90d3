#include "doctor/registry_key.h"

namespace quor::doctor {
namespace {

constexpr DWORD kLongestName = 16384;  // of a value; the registry's limit

REGSAM View(int bitness) noexcept {
  if (bitness == 64) return KEY_WOW64_64KEY;
  if (bitness == 32) return KEY_WOW64_32KEY;
  return 0;
}

}  // namespace

CRegistryKey::CRegistryKey(HKEY root, const std::wstring& path, int bitness,
                           REGSAM access) noexcept {
  if (RegOpenKeyExW(root, path.c_str(), 0, access | View(bitness), &m_key) != ERROR_SUCCESS) {
    m_key = nullptr;
  }
}

CRegistryKey::~CRegistryKey() {
  if (m_key != nullptr) RegCloseKey(m_key);
}

std::optional<std::wstring> CRegistryKey::Text(const std::wstring& name) const {
  // A REG_EXPAND_SZ value is returned expanded.
  DWORD size = 0;
  if (RegGetValueW(m_key, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (RegGetValueW(m_key, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(text.find(L'\0'));
  return text;
}

std::optional<uint32_t> CRegistryKey::Number(const std::wstring& name) const {
  DWORD number = 0;
  DWORD size = sizeof number;
  if (RegGetValueW(m_key, nullptr, name.c_str(), RRF_RT_REG_DWORD, nullptr, &number, &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return number;
}

std::vector<std::wstring> CRegistryKey::ValueNames() const {
  std::vector<std::wstring> names;
  std::wstring name(kLongestName, L'\0');
  for (DWORD i = 0;; ++i) {
    DWORD length = kLongestName;
    if (RegEnumValueW(m_key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    names.push_back(name.substr(0, length));
  }
}

std::vector<std::wstring> CRegistryKey::SubKeyNames() const {
  std::vector<std::wstring> names;
  wchar_t name[256];
  for (DWORD i = 0;; ++i) {
    DWORD length = 256;
    if (RegEnumKeyExW(m_key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    names.emplace_back(name, length);
  }
}

std::vector<uint8_t> CRegistryKey::Bytes(const std::wstring& name) const {
  DWORD size = 0;
  if (RegQueryValueExW(m_key, name.c_str(), nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<uint8_t> bytes(size);
  if (RegQueryValueExW(m_key, name.c_str(), nullptr, nullptr, bytes.data(), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  bytes.resize(size);
  return bytes;
}

std::vector<int> RegistryViews() {
  BOOL onWindows64 = sizeof(void*) == 8;
  if (!onWindows64) IsWow64Process(GetCurrentProcess(), &onWindows64);
  return onWindows64 ? std::vector<int>{64, 32} : std::vector<int>{32};
}

}  // namespace quor::doctor
