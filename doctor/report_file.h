#ifndef QUOR_DOCTOR_REPORT_FILE_H
#define QUOR_DOCTOR_REPORT_FILE_H

#include <string>
#include <vector>

#include "doctor/facts.h"
#include "doctor/findings.h"

namespace quor::doctor {

// Writes a file that users can send to support: the findings and the facts in English, and the
// newest diagnostic log, without numbers and names. False if the file cannot be written.
bool WriteReportFile(const std::wstring& path, const Facts& facts,
                     const std::vector<Finding>& findings);

}  // namespace quor::doctor

#endif
