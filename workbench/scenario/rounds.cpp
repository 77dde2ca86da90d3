#include "workbench/scenario/rounds.h"

#include "workbench/scenario/command.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kMostRounds = 1'000'000;

std::string WithRound(std::string text, int round) {
  constexpr std::string_view kPlace = "{round}";
  const std::string number = std::to_string(round);
  for (size_t at = 0; (at = text.find(kPlace, at)) != std::string::npos; at += number.size())
    text.replace(at, kPlace.size(), number);
  return text;
}

std::vector<Statement> StatementsOf(const std::string& block, int outlookVersion, int round) {
  std::vector<Statement> statements = ParseScript(WithRound(block, round), outlookVersion);
  for (Statement& statement : statements)
    statement.round = round;
  return statements;
}

bool ForEachRound(const Statement& repeat, int outlookVersion, const PlayStatement& play) {
  const FoundCommand found = FindCommand(repeat);
  const CCommandArguments arguments(repeat, found.words);
  const int rounds = arguments.Number(0, 1, kMostRounds);
  const std::string block = arguments.BlockText();
  const auto inItsLine = [&](const Statement& statement) {
    Statement placed = statement;
    placed.line = repeat.line;
    return play(placed);
  };
  for (int round = 1; round <= rounds; ++round) {
    if (!ForEachStatement(StatementsOf(block, outlookVersion, round), outlookVersion, inItsLine))
      return false;
  }
  return true;
}

}  // namespace

bool ForEachStatement(const std::vector<Statement>& statements, int outlookVersion,
                      const PlayStatement& play) {
  for (const Statement& statement : statements) {
    if (statement.words.front() != kRepeatCommand) {
      if (!play(statement)) return false;
      continue;
    }
    try {
      if (!ForEachRound(statement, outlookVersion, play)) return false;
    } catch (const CScenarioError& error) {
      throw CScenarioError(AtStatement(statement, error.what()));
    }
  }
  return true;
}

std::string AtStatement(const Statement& statement, const char* what) {
  const std::string round =
      statement.round == 0 ? "" : ", round " + std::to_string(statement.round);
  return "line " + std::to_string(statement.line) + round + ": " + statement.source + "\n  " + what;
}

}  // namespace quor::workbench
