#ifndef QUOR_WORKBENCH_SCENARIO_SCENARIO_ERROR_H
#define QUOR_WORKBENCH_SCENARIO_SCENARIO_ERROR_H

#include <stdexcept>
#include <string>

namespace quor::workbench {

// An error in the scenario: an unknown word, a number out of range. Thrown while a line is read or
// run; code that knows the line number adds it.
class CScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A correct scenario's expectation failed. The text describes what was found instead.
class CExpectationFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quor::workbench

#endif
