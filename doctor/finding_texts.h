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

// A finding in words, UTF-8.
Sentences InWords(const Finding& finding, Language language);

// Word for a finding that does not change with language or wording: "library-missing".
const char* Name(FindingKind kind);

// What a LoadBehavior means, and why an add-in is on Outlook's list of those that it keeps enabled.
std::string LoadBehaviorInWords(uint32_t value, Language language);
std::string ReasonInWords(uint32_t reason, Language language);

}  // namespace quor::doctor

#endif
