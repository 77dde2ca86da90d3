#ifndef QUOR_DOCTOR_DOCTOR_WINDOW_H
#define QUOR_DOCTOR_DOCTOR_WINDOW_H

#include "doctor/finding_texts.h"

namespace quor::doctor {

// Shows the findings, with buttons to repair and to check again, until the user closes the window.
// Returns the exit code.
int ShowDoctorWindow(Language language);

}  // namespace quor::doctor

#endif
