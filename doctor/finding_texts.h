#ifndef QUOR_DOCTOR_FINDING_TEXTS_H
#define QUOR_DOCTOR_FINDING_TEXTS_H

#include <string>

#include "doctor/findings.h"

namespace quor::doctor {

enum class Language { English, French, Spanish };

struct Sentences {
  std::string what;
  std::string cure;
};

// The texts of a finding, UTF-8.
Sentences InWords(const Finding& finding, Language language);

// A finding's fixed name, in every language: "library-missing".
const char* Name(FindingKind kind);

// The meaning of a LoadBehavior value, and the reason for an entry in Outlook's list of add-ins
// that stay enabled.
std::string LoadBehaviorInWords(uint32_t value, Language language);
std::string ReasonInWords(uint32_t reason, Language language);

}  // namespace quor::doctor

#endif
