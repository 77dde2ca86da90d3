#ifndef QUOR_WORKBENCH_SCENARIO_INDICATIONS_H
#define QUOR_WORKBENCH_SCENARIO_INDICATIONS_H

#include <span>
#include <string>

#include "workbench/scenario/bytes.h"

namespace quor::workbench {

// What the help says about the words that IndicationFromWords understands.
extern const char kIndicationHelp[];

// True for "status", "receive-call", "caller-id", "close-popup", "cell-registration".
bool IsIndicationName(const std::string& word);

// An indication by name and fields, such as: status line1=2 result=1. A field left out takes the
// value that an idle base sends; end=0D00 replaces the two delimiters. Throws CScenarioError.
Bytes IndicationFromWords(std::span<const std::string> words);

}  // namespace quor::workbench

#endif
