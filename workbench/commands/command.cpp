#include "workbench/commands/command.h"

#include <algorithm>
#include <sstream>

#include "workbench/commands/commands.h"
#include "workbench/scenario/numbers.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

int NumberWithin(const std::string& text, int least, int most) {
  const std::optional<int> value = ParseNumber<int>(text);
  if (!value || *value < least || *value > most) {
    throw CScenarioError("\"" + text + "\" is not a number from " + std::to_string(least) + " to " +
                         std::to_string(most));
  }
  return *value;
}

size_t MatchingWords(const Command& command, const std::vector<std::string>& words) {
  const std::vector<std::string> names = SplitWords(command.words);
  if (names.size() > words.size()) return 0;
  for (size_t i = 0; i < names.size(); ++i) {
    if (names[i] != words[i]) return 0;
  }
  return names.size();
}

std::string WithoutBlockMark(const std::string& usage) {
  for (const std::string_view mark : {" [:]", ":"}) {
    if (usage.ends_with(mark)) return usage.substr(0, usage.size() - mark.size());
  }
  return usage;
}

// "expect files", from the manual's line "- `expect files:`". The manual has the
// commands in the order of the tables.
std::string Usage(const Command& command) {
  std::istringstream manual(kCommandHelp);
  std::string line;
  for (const auto& group : CommandGroups()) {
    for (const Command& one : group) {
      while (std::getline(manual, line) && !line.starts_with("- `")) {
      }
      if (&one != &command) continue;
      return WithoutBlockMark(line.substr(3, line.size() - 4));
    }
  }
  return command.words;
}

void CheckShape(const Statement& statement, const FoundCommand& found) {
  const Command& command = *found.command;
  const size_t count = statement.words.size() - found.words;
  if (count < command.least || count > command.most) {
    throw CScenarioError("usage: " + Usage(command));
  }
  if (statement.hasBlock && command.block == Command::Block::None) {
    throw CScenarioError(std::string("\"") + command.words + "\" takes no block");
  }
  if (statement.hasBlock && statement.block.empty()) {
    throw CScenarioError("the block is empty; its lines begin with |");
  }
  if (!statement.hasBlock && command.block == Command::Block::Required) {
    throw CScenarioError(std::string("\"") + command.words +
                         "\" needs a block: end the line with :");
  }
}

}  // namespace

std::span<const std::span<const Command>> CommandGroups() {
  static const std::span<const Command> groups[] = {
      kSceneCommands,  kOutlookCommands, kBaseCommands,    kContactCommands,
      kScreenCommands, kTimeCommands,    kEvidenceCommands};
  return groups;
}

std::string CCommandArguments::BlockText() const {
  std::string text;
  for (const std::string& line : m_statement->block)
    text += line + "\n";
  return text;
}

std::vector<Statement> CCommandArguments::Commands(size_t first, int outlookVersion) const {
  if (Count() <= first) {
    if (!HasBlock()) ThrowUsage();
    return ParseScript(BlockText(), outlookVersion);
  }
  Statement one = *m_statement;
  one.words.assign(m_words.begin() + static_cast<std::ptrdiff_t>(first), m_words.end());
  one.beginsStep = false;
  return {one};
}

const std::string& CCommandArguments::Text(size_t index) const {
  if (index >= m_words.size()) throw CScenarioError("a word is missing at the end of the line");
  return m_words[index];
}

bool CCommandArguments::Is(size_t index, std::string_view word) const {
  return index < m_words.size() && m_words[index] == word;
}

size_t CCommandArguments::Choice(size_t index,
                                 std::initializer_list<std::string_view> words) const {
  const auto found =
      std::ranges::find_if(words, [&](std::string_view word) { return Is(index, word); });
  if (found == words.end()) ThrowUsage();
  return static_cast<size_t>(found - words.begin());
}

int CCommandArguments::Number(size_t index, int least, int most) const {
  return NumberWithin(Text(index), least, most);
}

std::optional<std::string> CCommandArguments::After(std::string_view name) const {
  for (size_t i = 0; i < m_words.size(); ++i) {
    if (m_words[i] == name) return Text(i + 1);
  }
  return std::nullopt;
}

std::optional<int> CCommandArguments::NumberAfter(std::string_view name, int least,
                                                  int most) const {
  const std::optional<std::string> text = After(name);
  if (!text) return std::nullopt;
  return NumberWithin(*text, least, most);
}

void CCommandArguments::ThrowUsage() const {
  throw CScenarioError("usage: " + Usage(*FindCommand(*m_statement).command));
}

FoundCommand FindCommand(const Statement& statement) {
  FoundCommand found = {nullptr, 0};
  for (const auto& group : CommandGroups()) {
    for (const Command& command : group) {
      const size_t words = MatchingWords(command, statement.words);
      if (words > found.words) found = {&command, words};
    }
  }
  if (!found.command) {
    throw CScenarioError("unknown command \"" + statement.words.front() +
                         "\"; workbench --help lists them");
  }
  CheckShape(statement, found);
  return found;
}

}  // namespace quor::workbench
