#include "workbench/scenario/command.h"

#include <charconv>

#include "workbench/scenario/commands.h"
#include "workbench/scenario/indications.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

std::optional<int> ParseNumber(std::string_view text) {
  const bool hexadecimal = text.starts_with("0x");
  if (hexadecimal) text.remove_prefix(2);
  int value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, hexadecimal ? 16 : 10);
  if (text.empty() || result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

int NumberWithin(const std::string& text, int least, int most) {
  const std::optional<int> value = ParseNumber(text);
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

void CheckShape(const Statement& statement, const FoundCommand& found) {
  const Command& command = *found.command;
  const size_t count = statement.words.size() - found.words;
  if (count < command.least || count > command.most) {
    throw CScenarioError(std::string("usage: ") + command.words + " " + command.arguments);
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

std::string Usage(const Command& command) {
  std::string usage = command.words;
  if (*command.arguments) usage = usage + " " + command.arguments;
  if (command.block == Command::Block::Required) usage += ":";
  if (command.block == Command::Block::Optional) usage += " [:]";
  return usage;
}

}  // namespace

std::span<const CommandGroup> CommandGroups() {
  static const CommandGroup groups[] = {{"Setting the scene", SceneCommands()},
                                        {"Outlook and the add-in", OutlookCommands()},
                                        {"The telephone base", BaseCommands()},
                                        {"Contacts, folders and their windows", ContactCommands()},
                                        {"Toolbar, ribbon and windows", ScreenCommands()},
                                        {"Time", TimeCommands()},
                                        {"Evidence", EvidenceCommands()}};
  return groups;
}

std::string CCommandArguments::BlockText() const {
  std::string text;
  for (const std::string& line : m_statement->block)
    text += line + "\n";
  return text;
}

const std::string& CCommandArguments::Text(size_t index) const {
  if (index >= m_words.size()) throw CScenarioError("a word is missing at the end of the line");
  return m_words[index];
}

bool CCommandArguments::Is(size_t index, std::string_view word) const {
  return index < m_words.size() && m_words[index] == word;
}

int CCommandArguments::Number(size_t index, int least, int most) const {
  return NumberWithin(Text(index), least, most);
}

bool CCommandArguments::YesNo(size_t index) const {
  if (Is(index, "yes")) return true;
  if (Is(index, "no")) return false;
  throw CScenarioError("\"" + Text(index) + "\" is neither yes nor no");
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

FoundCommand FindCommand(const Statement& statement) {
  FoundCommand found = {nullptr, 0};
  for (const CommandGroup& group : CommandGroups()) {
    for (const Command& command : group.commands) {
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

std::string CommandHelp() {
  std::string text;
  for (const CommandGroup& group : CommandGroups()) {
    text += std::string(group.title) + "\n";
    for (const Command& command : group.commands) {
      text += "  " + Usage(command) + "\n      " + command.help + "\n";
    }
    text += "\n";
  }
  text += std::string("Indications\n") + kIndicationHelp;
  return text;
}

std::string CommandHelpMarkdown() {
  std::string text;
  for (const CommandGroup& group : CommandGroups()) {
    text += std::string("### ") + group.title + "\n\n";
    for (const Command& command : group.commands) {
      text += "- `" + Usage(command) + "`\n  " + command.help + "\n";
    }
    text += "\n";
  }
  text += std::string("### Indications\n\n```\n") + kIndicationHelp + "```\n";
  return text;
}

}  // namespace quor::workbench
