#ifndef QUOR_DOCTOR_MEND_H
#define QUOR_DOCTOR_MEND_H

#include <optional>
#include <string>

#include "doctor/facts.h"

namespace quor::doctor {

// Takes the add-in off Outlook's lists of disabled and crashing ones, has it kept enabled from now
// on, and sets its LoadBehavior back to 3. Nothing else is touched; what stood in the registry is
// written to a .reg file first, whose path is returned. Nothing is returned, and nothing changed,
// when that file cannot be written.
std::optional<std::wstring> Mend(const Facts& facts);

}  // namespace quor::doctor

#endif
