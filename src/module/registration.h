#ifndef QUOR_MODULE_REGISTRATION_H
#define QUOR_MODULE_REGISTRATION_H

#include <cstdint>
#include <span>

#include "module/registration_script.h"

namespace quor {

// The registry operations that registration needs. Each returns a Win32 error code, 0 for success.
class IRegistry {
 public:
  // Creates the key and its parents if they do not exist.
  virtual uint32_t CreateKey(const RegistryKey& key) = 0;
  virtual uint32_t SetValue(const RegistryKey& key, const RegistryValue& value) = 0;
  // Removing what does not exist succeeds.
  virtual uint32_t RemoveValue(const RegistryKey& key, const RegistryValue& value) = 0;
  // Leaves a key alone if it has a value or a subkey, and succeeds.
  virtual uint32_t RemoveKeyWhenEmpty(const RegistryKey& key) = 0;
  virtual uint32_t RemoveKeyWithContents(const RegistryKey& key) = 0;

  // Whether 32-bit and 64-bit programs share the key. Otherwise each sees a copy of its own.
  virtual bool IsInCommon(const RegistryKey& key) const = 0;
  // Whether the other bitness's copy of the key exists. False for a shared key, and on a Windows
  // with only one bitness.
  virtual bool IsInOtherBitness(const RegistryKey& key) const = 0;

 protected:
  ~IRegistry() = default;
};

// Writes the keys and values of the scripts. If a step fails, removes what was written and returns
// the error.
uint32_t ApplyScripts(std::span<const RegistrationScript> scripts, IRegistry& registry);

// Removes the keys and values of the scripts. Continues after failures and returns the first one.
// Shared keys stay if the other bitness has one of the scripts' ForceRemove keys: it is then still
// registered and needs the names that lead to its classes.
uint32_t RevokeScripts(std::span<const RegistrationScript> scripts, IRegistry& registry);

}  // namespace quor

#endif
