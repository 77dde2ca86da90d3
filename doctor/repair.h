#ifndef QUOR_DOCTOR_REPAIR_H
#define QUOR_DOCTOR_REPAIR_H

#include <optional>
#include <string>

#include "doctor/facts.h"

namespace quor::doctor {

// Removes the add-in from Outlook's lists of disabled and crashing add-ins, adds it to the list of
// those that stay enabled, and sets its LoadBehavior to 3. Changes nothing else. First saves the
// old registry values to a .reg file and returns its path; if this fails, changes nothing and
// returns nothing.
std::optional<std::wstring> Repair(const Facts& facts);

}  // namespace quor::doctor

#endif
