#ifndef QUOR_MODULE_MODULE_REGISTRATION_H
#define QUOR_MODULE_MODULE_REGISTRATION_H

#include "module/windows_registry.h"

namespace quor {

// Runs the registration scripts among this DLL's resources. A failed registration leaves nothing
// behind.
HRESULT RegisterModule(RegistrationScope scope) noexcept;
HRESULT UnregisterModule(RegistrationScope scope) noexcept;

}  // namespace quor

#endif
