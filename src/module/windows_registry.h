#ifndef QUOR_MODULE_WINDOWS_REGISTRY_H
#define QUOR_MODULE_WINDOWS_REGISTRY_H

#include <windows.h>

#include "module/registration.h"

namespace quor {

// For whom a registration counts.
enum class RegistrationScope {
  Machine,  // HKEY_LOCAL_MACHINE, the classes in Software\Classes: what HKEY_CLASSES_ROOT shows to
            // everybody; needs an administrator
  User,     // the same keys below HKEY_CURRENT_USER, the classes in Software\Classes
};

// The registry of this Windows, in the view of the process's own bitness.
class CWindowsRegistry final : public IRegistry {
 public:
  explicit CWindowsRegistry(RegistrationScope scope) noexcept : m_scope(scope) {}

  uint32_t CreateKey(const RegistryKey& key) override;
  uint32_t SetValue(const RegistryKey& key, const RegistryValue& value) override;
  uint32_t RemoveValue(const RegistryKey& key, const RegistryValue& value) override;
  uint32_t RemoveKeyWhenEmpty(const RegistryKey& key) override;
  uint32_t RemoveKeyWithContents(const RegistryKey& key) override;
  bool IsInCommon(const RegistryKey& key) const override;
  bool IsInOtherBitness(const RegistryKey& key) const override;

 private:
  HKEY Root() const noexcept;
  std::wstring Path(const RegistryKey& key) const;

  RegistrationScope m_scope;
};

}  // namespace quor

#endif
