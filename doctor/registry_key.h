#ifndef QUOR_DOCTOR_REGISTRY_KEY_H
#define QUOR_DOCTOR_REGISTRY_KEY_H

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quor::doctor {

// A registry key opened for reading. Missing values are read as nothing.
class CRegistryKey {
 public:
  // `bitness` is the view: 32, 64, or 0 if both are the same.
  CRegistryKey(HKEY root, const std::wstring& path, int bitness, REGSAM access = KEY_READ) noexcept;
  ~CRegistryKey();
  CRegistryKey(const CRegistryKey&) = delete;
  CRegistryKey& operator=(const CRegistryKey&) = delete;

  bool IsThere() const noexcept { return m_key != nullptr; }
  HKEY Get() const noexcept { return m_key; }
  std::optional<std::wstring> Text(const std::wstring& name) const;  // empty name: the default
  std::optional<uint32_t> Number(const std::wstring& name) const;
  std::vector<std::wstring> ValueNames() const;
  std::vector<std::wstring> SubKeyNames() const;
  std::vector<uint8_t> Bytes(const std::wstring& name) const;

 private:
  HKEY m_key = nullptr;
};

// The registry views of this Windows: 64 and 32, or only 32.
std::vector<int> RegistryViews();

}  // namespace quor::doctor

#endif
