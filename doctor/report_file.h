#ifndef QUOR_DOCTOR_REPORT_FILE_H
#define QUOR_DOCTOR_REPORT_FILE_H

#include <string>
#include <vector>

#include "doctor/facts.h"
#include "doctor/findings.h"

namespace quor::doctor {

// Writes what users send to those who help them: the findings and what was looked at, in English,
// and the newest diagnostic log, all without numbers and names. False when the file cannot be
// written.
bool WriteReportFile(const std::wstring& path, const Facts& facts,
                     const std::vector<Finding>& findings);

}  // namespace quor::doctor

#endif
