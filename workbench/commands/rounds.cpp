#include "workbench/commands/rounds.h"

#include <algorithm>

#include "workbench/commands/command.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kMostRounds = 1'000'000;

constexpr std::string_view kRound = "{round}";

void Put(std::string& text, std::string_view place, const std::string& value) {
  for (size_t at = 0; (at = text.find(place, at)) != std::string::npos; at += value.size())
    text.replace(at, place.size(), value);
}

bool IsRepeat(const Statement& statement) {
  return statement.words.front() == kRepeatCommand;
}

// A nested "repeat" numbers its own rounds.
Statement InRound(Statement statement, int line, int round) {
  const std::string number = std::to_string(round);
  Put(statement.source, kRound, number);
  for (std::string& word : statement.words)
    Put(word, kRound, number);
  if (!IsRepeat(statement)) {
    for (std::string& text : statement.block)
      Put(text, kRound, number);
  }
  statement.line = line;
  statement.round = round;
  return statement;
}

bool PlayRound(const Statement& repeat, int round, const std::vector<Statement>& block,
               int outlookVersion, const PlayStatement& play) {
  std::vector<Statement> statements(block.size());
  std::ranges::transform(block, statements.begin(), [&](const Statement& statement) {
    return InRound(statement, repeat.line, round);
  });
  if (round == 1 && repeat.beginsStep) statements.front().beginsStep = true;
  return ForEachStatement(statements, outlookVersion, play);
}

bool ForEachRound(const Statement& repeat, int outlookVersion, const PlayStatement& play) {
  const FoundCommand found = FindCommand(repeat);
  const CCommandArguments arguments(repeat, found.words);
  const int rounds = arguments.Number(0, 1, kMostRounds);
  const std::vector<Statement> block = ParseScript(arguments.BlockText(), outlookVersion);
  for (int round = 1; round <= rounds; ++round) {
    if (!PlayRound(repeat, round, block, outlookVersion, play)) return false;
  }
  return true;
}

}  // namespace

bool ForEachStatement(const std::vector<Statement>& statements, int outlookVersion,
                      const PlayStatement& play) {
  for (const Statement& statement : statements) {
    if (!IsRepeat(statement)) {
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
