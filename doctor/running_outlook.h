#ifndef QUOR_DOCTOR_RUNNING_OUTLOOK_H
#define QUOR_DOCTOR_RUNNING_OUTLOOK_H

#include "doctor/facts.h"

namespace quor::doctor {

// Queries the running Outlook, if there is one. COM must be initialised.
RunningOutlook LookAtRunningOutlook();

}  // namespace quor::doctor

#endif
