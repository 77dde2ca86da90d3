#ifndef QUOR_DOCTOR_GATHER_H
#define QUOR_DOCTOR_GATHER_H

#include <string>

#include "doctor/facts.h"

namespace quor::doctor {

inline constexpr wchar_t kProgId[] = L"QuorTelephoneToolbar.Addin";

// All versions of Outlook that are checked; the registry spells them "16.0".
inline constexpr int kOutlookVersions[] = {9, 10, 11, 12, 14, 15, 16};

std::wstring AddInKeyPath();
// Path of one of Outlook's lists, such as
// "Software\Microsoft\Office\16.0\Outlook\Resiliency\DisabledItems".
std::wstring ResiliencyPath(int version, const std::wstring& list);

// Whether a value in one of Outlook's binary lists refers to the add-in.
bool MeansAddIn(const std::wstring& valueName, const std::vector<uint8_t>& data);

// Examines this computer without changing anything. COM must be initialised.
Facts Gather();

}  // namespace quor::doctor

#endif
