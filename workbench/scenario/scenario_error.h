#ifndef QUOR_WORKBENCH_SCENARIO_SCENARIO_ERROR_H
#define QUOR_WORKBENCH_SCENARIO_SCENARIO_ERROR_H

#include <stdexcept>
#include <string>

namespace quor::workbench {

// The scenario itself is wrong: a word that no command knows, a number out of range. Raised while
// reading or running a line; whoever knows the line number adds it.
class CScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The scenario is right and what it expects did not happen. The text says what was seen instead.
class CExpectationFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quor::workbench

#endif
