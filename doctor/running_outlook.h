#ifndef QUOR_DOCTOR_RUNNING_OUTLOOK_H
#define QUOR_DOCTOR_RUNNING_OUTLOOK_H

#include "doctor/facts.h"

namespace quor::doctor {

// Asks the Outlook that runs, if one does. COM must be initialised.
RunningOutlook LookAtRunningOutlook();

}  // namespace quor::doctor

#endif
