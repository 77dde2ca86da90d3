#include "module/registration.h"

#include <algorithm>

namespace quor {
namespace {

uint32_t WriteKey(const RegistryKey& key, IRegistry& registry) {
  if (key.removal == KeyRemoval::WithContents) {
    if (const uint32_t error = registry.RemoveKeyWithContents(key)) return error;
  }
  if (const uint32_t error = registry.CreateKey(key)) return error;
  for (const RegistryValue& value : key.values) {
    if (const uint32_t error = registry.SetValue(key, value)) return error;
  }
  return 0;
}

uint32_t WriteScripts(std::span<const RegistrationScript> scripts, IRegistry& registry) {
  for (const RegistrationScript& script : scripts) {
    for (const RegistryKey& key : script) {
      if (const uint32_t error = WriteKey(key, registry)) return error;
    }
  }
  return 0;
}

uint32_t RemoveKey(const RegistryKey& key, IRegistry& registry) {
  if (key.removal == KeyRemoval::WithContents) return registry.RemoveKeyWithContents(key);
  uint32_t first = 0;
  for (const RegistryValue& value : key.values) {
    const uint32_t error = registry.RemoveValue(key, value);
    if (first == 0) first = error;
  }
  if (key.removal == KeyRemoval::Never) return first;
  const uint32_t error = registry.RemoveKeyWhenEmpty(key);
  return first != 0 ? first : error;
}

// Removes either the keys that both bitnesses share or those that they do not.
uint32_t RemoveKeys(std::span<const RegistrationScript> scripts, IRegistry& registry,
                    bool inCommon) {
  uint32_t first = 0;
  for (const RegistrationScript& script : scripts) {
    // Remove children before their parents.
    std::for_each(script.rbegin(), script.rend(), [&](const RegistryKey& key) {
      if (registry.IsInCommon(key) != inCommon) return;
      const uint32_t error = RemoveKey(key, registry);
      if (first == 0) first = error;
    });
  }
  return first;
}

bool OtherBitnessIsRegistered(std::span<const RegistrationScript> scripts,
                              const IRegistry& registry) {
  return std::ranges::any_of(scripts, [&](const RegistrationScript& script) {
    return std::ranges::any_of(script, [&](const RegistryKey& key) {
      return key.removal == KeyRemoval::WithContents && registry.IsInOtherBitness(key);
    });
  });
}

}  // namespace

uint32_t ApplyScripts(std::span<const RegistrationScript> scripts, IRegistry& registry) {
  const uint32_t error = WriteScripts(scripts, registry);
  if (error != 0) RevokeScripts(scripts, registry);
  return error;
}

uint32_t RevokeScripts(std::span<const RegistrationScript> scripts, IRegistry& registry) {
  const uint32_t first = RemoveKeys(scripts, registry, false);
  // Check this only after the removal above: on a registry with one copy for both bitnesses, it
  // would otherwise find our own keys.
  if (OtherBitnessIsRegistered(scripts, registry)) return first;
  const uint32_t error = RemoveKeys(scripts, registry, true);
  return first != 0 ? first : error;
}

}  // namespace quor
