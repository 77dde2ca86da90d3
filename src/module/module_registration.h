#ifndef QUOR_MODULE_MODULE_REGISTRATION_H
#define QUOR_MODULE_MODULE_REGISTRATION_H

#include "module/windows_registry.h"

namespace quor {

// Applies the registration scripts in this DLL's resources. A failed registration leaves no keys
// behind.
HRESULT RegisterModule(RegistrationScope scope) noexcept;
HRESULT UnregisterModule(RegistrationScope scope) noexcept;

}  // namespace quor

#endif
