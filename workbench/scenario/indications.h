#ifndef QUOR_WORKBENCH_SCENARIO_INDICATIONS_H
#define QUOR_WORKBENCH_SCENARIO_INDICATIONS_H

#include <span>
#include <string>

#include "workbench/scenario/bytes.h"

namespace quor::workbench {

// True for "status", "receive-call", "caller-id", "close-popup", "cell-registration".
bool IsIndicationName(const std::string& word);

// Builds an indication from its name and fields, for example: status line1=2 result=1. A missing
// field has the value that an idle base sends; end=0D00 replaces the two delimiters. Throws
// CScenarioError.
Bytes IndicationFromWords(std::span<const std::string> words);

}  // namespace quor::workbench

#endif
