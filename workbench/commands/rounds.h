#ifndef QUOR_WORKBENCH_COMMANDS_ROUNDS_H
#define QUOR_WORKBENCH_COMMANDS_ROUNDS_H

#include <functional>
#include <vector>

#include "workbench/scenario/script.h"

namespace quor::workbench {

using PlayStatement = std::function<bool(const Statement&)>;

// Calls `play` for each statement in order until it returns false; the result is then false.
// Replaces a "repeat" by the statements of its block, once per round, with the round's number for
// "{round}". Throws CScenarioError with the line of an invalid "repeat".
bool ForEachStatement(const std::vector<Statement>& statements, int outlookVersion,
                      const PlayStatement& play);

// A message with the statement's line.
std::string AtStatement(const Statement& statement, const char* what);

}  // namespace quor::workbench

#endif
