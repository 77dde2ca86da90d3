#ifndef QUOR_WORKBENCH_SCENARIO_RESULTS_H
#define QUOR_WORKBENCH_SCENARIO_RESULTS_H

#include <cstdint>
#include <string>

#include "workbench/scenario/stage.h"

namespace quor::workbench {

// Parses "S_OK", "S_FALSE", "E_FAIL" and so on, or a number, decimal or 0x. Throws CScenarioError.
uint32_t ResultFromName(const std::string& name);
std::string ResultName(uint32_t result);

constexpr bool IsFailure(uint32_t result) {
  return (result & 0x80000000u) != 0;
}

// Parses "3", "2-5" or "4-" (all calls from the fourth on). Throws CScenarioError.
FailingCalls ParseCalls(const std::string& text, uint32_t status);

}  // namespace quor::workbench

#endif
