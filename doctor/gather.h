#ifndef QUOR_DOCTOR_GATHER_H
#define QUOR_DOCTOR_GATHER_H

#include <string>

#include "doctor/facts.h"

namespace quor::doctor {

inline constexpr wchar_t kProgId[] = L"QuorTelephoneToolbar.Addin";

// Every version of Outlook that can be met; the registry names them "16.0".
inline constexpr int kOutlookVersions[] = {9, 10, 11, 12, 14, 15, 16};

std::wstring AddInKeyPath();
// "Software\Microsoft\Office\16.0\Outlook\Resiliency\" and the list's name.
std::wstring ResiliencyPath(int version, const std::wstring& list);

// Whether a value of one of Outlook's binary lists is about the add-in.
bool MeansAddIn(const std::wstring& valueName, const std::vector<uint8_t>& data);

// Looks at this computer, and changes nothing. COM must be initialised.
Facts Gather();

}  // namespace quor::doctor

#endif
