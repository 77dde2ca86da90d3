#ifndef QUOR_MODULE_REGISTRATION_H
#define QUOR_MODULE_REGISTRATION_H

#include <cstdint>
#include <span>

#include "module/registration_script.h"

namespace quor {

// The registry as registration needs it. Every operation returns a Win32 error code, 0 for success.
class IRegistry {
 public:
  // Makes the key with its parents, or finds it there.
  virtual uint32_t CreateKey(const RegistryKey& key) = 0;
  virtual uint32_t SetValue(const RegistryKey& key, const RegistryValue& value) = 0;
  // What is to be removed and is not there counts as removed.
  virtual uint32_t RemoveValue(const RegistryKey& key, const RegistryValue& value) = 0;
  // Leaves a key alone that still has a value or a key below it; that is success too.
  virtual uint32_t RemoveKeyWhenEmpty(const RegistryKey& key) = 0;
  virtual uint32_t RemoveKeyWithContents(const RegistryKey& key) = 0;

  // 32-bit and 64-bit programs see some keys in common and others in a copy of their own. Whether
  // this one is in common.
  virtual bool IsInCommon(const RegistryKey& key) const = 0;
  // Whether the other bitness's copy of a key is there. No for a key in common, and on a Windows
  // that has one bitness only.
  virtual bool IsInOtherBitness(const RegistryKey& key) const = 0;

 protected:
  ~IRegistry() = default;
};

// Writes what the scripts say. All or nothing: after a failure, which is returned, what had been
// written is taken away again.
uint32_t ApplyScripts(std::span<const RegistrationScript> scripts, IRegistry& registry);

// Takes away what the scripts say. Goes on past failures and returns the first one. The keys in
// common stay while one of the scripts' ForceRemove keys is there in the other bitness: it is
// registered, and the names that lead to its classes are among them.
uint32_t RevokeScripts(std::span<const RegistrationScript> scripts, IRegistry& registry);

}  // namespace quor

#endif
