#ifndef QUOR_DOCTOR_USB_BASES_H
#define QUOR_DOCTOR_USB_BASES_H

#include <optional>
#include <string>
#include <vector>

#include "doctor/facts.h"

namespace quor::doctor {

// Queries a complete USB library of this program's bitness. Returns nothing if the library cannot
// be loaded or fails. Opens each base briefly, which shows whether a program uses it; a base in use
// is not disturbed.
std::optional<std::vector<UsbBase>> LookAtBases(const std::wstring& libraryPath);

}  // namespace quor::doctor

#endif
