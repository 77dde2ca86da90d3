#ifndef QUOR_DOCTOR_DOCTOR_WINDOW_H
#define QUOR_DOCTOR_DOCTOR_WINDOW_H

#include <windows.h>

#include <string>

#include "doctor/finding_texts.h"

namespace quor::doctor {

// Asks in a message box whether to repair.
bool AskToRepair(HWND owner, Language language);
std::wstring RepairQuestion(Language language);
// The answer to it that agrees: the first letter of "yes", "oui", "sí".
char YesKey(Language language);

// Shows the findings, with buttons to repair and to check again, until the user closes the window.
// Returns the exit code.
int ShowDoctorWindow(Language language);

}  // namespace quor::doctor

#endif
