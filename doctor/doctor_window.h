#ifndef QUOR_DOCTOR_DOCTOR_WINDOW_H
#define QUOR_DOCTOR_DOCTOR_WINDOW_H

#include "doctor/finding_texts.h"

namespace quor::doctor {

// Shows what is found, with buttons to mend and to look again, until the user closes it. Returns
// the exit code.
int ShowDoctorWindow(Language language);

}  // namespace quor::doctor

#endif
