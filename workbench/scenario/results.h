#ifndef QUOR_WORKBENCH_SCENARIO_RESULTS_H
#define QUOR_WORKBENCH_SCENARIO_RESULTS_H

#include <cstdint>
#include <string>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// "S_OK", "S_FALSE", "E_FAIL", ... or a number, decimal or 0x. Throws CScenarioError.
uint32_t ResultFromName(const std::string& name);
std::string ResultName(uint32_t result);

constexpr bool IsFailure(uint32_t result) {
  return (result & 0x80000000u) != 0;
}

// "3", "2-5" or "4-" (from the fourth on, for ever). Throws CScenarioError.
FailingCalls ParseCalls(const std::string& text, uint32_t status);

}  // namespace quor::workbench

#endif
