#ifndef QUOR_DOCTOR_REPORT_H
#define QUOR_DOCTOR_REPORT_H

#include <string>
#include <vector>

#include "doctor/facts.h"
#include "doctor/finding_texts.h"
#include "doctor/findings.h"

namespace quor::doctor {

// What was found, for people: each finding with its cure, then what was looked at. UTF-8, lines end
// with a line feed.
std::string TextReport(const Facts& facts, const std::vector<Finding>& findings, Language language);

// The same for programs.
std::string JsonReport(const Facts& facts, const std::vector<Finding>& findings, Language language);

}  // namespace quor::doctor

#endif
