#ifndef QUOR_MODULE_WINDOWS_REGISTRY_H
#define QUOR_MODULE_WINDOWS_REGISTRY_H

#include <windows.h>

#include "module/registration.h"

namespace quor {

// The users that a registration applies to.
enum class RegistrationScope {
  Machine,  // all users: HKEY_LOCAL_MACHINE, classes in Software\Classes; needs an administrator
  User,     // the current user: the same keys below HKEY_CURRENT_USER
};

// This Windows's registry, as programs of this process's bitness see it.
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
