#ifndef QUOR_WORKBENCH_SCENARIO_ROUNDS_H
#define QUOR_WORKBENCH_SCENARIO_ROUNDS_H

#include <functional>
#include <vector>

#include "workbench/scenario/script.h"

namespace quor::workbench {

using PlayStatement = std::function<bool(const Statement&)>;

// Hands over the statements in the order in which they are played, until `play` says that enough is
// enough; false then. A "repeat" gives way to the statements of its block, once for each round, and
// "{round}" in them to the round's number. Throws CScenarioError with the place of a "repeat" that
// makes no sense.
bool ForEachStatement(const std::vector<Statement>& statements, int outlookVersion,
                      const PlayStatement& play);

// Where a statement stands and what there is to say about it.
std::string AtStatement(const Statement& statement, const char* what);

}  // namespace quor::workbench

#endif
