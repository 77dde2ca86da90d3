#ifndef QUOR_DOCTOR_REPORT_H
#define QUOR_DOCTOR_REPORT_H

#include <string>
#include <vector>

#include "doctor/facts.h"
#include "doctor/finding_texts.h"
#include "doctor/findings.h"

namespace quor::doctor {

// The report for people: each finding with its remedy, then what was examined. UTF-8, lines end
// with a line feed.
std::string TextReport(const Facts& facts, const std::vector<Finding>& findings, Language language);

// The report for programs.
std::string JsonReport(const Facts& facts, const std::vector<Finding>& findings, Language language);

}  // namespace quor::doctor

#endif
