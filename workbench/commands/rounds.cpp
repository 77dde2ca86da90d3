#include "workbench/commands/rounds.h"

#include <algorithm>
#include <sstream>

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

bool IsRow(const std::string& line) {
  return line.starts_with("- ");
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
  if (round == 1 && repeat.beginsStep && !statements.empty()) statements.front().beginsStep = true;
  return ForEachStatement(statements, outlookVersion, play);
}

// A line with `place` stands once for each line of `text`.
std::vector<std::string> Filled(const std::vector<std::string>& lines, const std::string& place,
                                const std::string& text) {
  std::vector<std::string> filled;
  for (const std::string& line : lines) {
    if (line.find(place) == std::string::npos) {
      filled.push_back(line);
      continue;
    }
    std::istringstream values(text);
    for (std::string value; std::getline(values, value);)
      Put(filled.emplace_back(line), place, value);
  }
  return filled;
}

// The block without its rows, filled from one row.
std::vector<Statement> FilledBlock(const Statement& repeat, std::string_view row,
                                   int outlookVersion) {
  const std::vector<std::string> cells = SplitWords(row);
  std::vector<std::string> lines = repeat.block;
  std::erase_if(lines, IsRow);
  for (size_t i = 0; i < cells.size(); ++i)
    lines = Filled(lines, "{" + std::to_string(i + 1) + "}", cells[i]);
  std::string text;
  for (const std::string& line : lines)
    text += line + "\n";
  return ParseScript(text, outlookVersion);
}

bool ForEachRow(const Statement& repeat, int outlookVersion, const PlayStatement& play) {
  int round = 0;
  for (const std::string& row : repeat.block) {
    if (!IsRow(row)) continue;
    const std::vector<Statement> block = FilledBlock(repeat, row.substr(1), outlookVersion);
    if (!PlayRound(repeat, ++round, block, outlookVersion, play)) return false;
  }
  if (round == 0) throw CScenarioError("there are no rows");
  return true;
}

bool ForEachRound(const Statement& repeat, int outlookVersion, const PlayStatement& play) {
  const FoundCommand found = FindCommand(repeat);
  const CCommandArguments arguments(repeat, found.words);
  if (arguments.Is(0, "rows")) return ForEachRow(repeat, outlookVersion, play);
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
