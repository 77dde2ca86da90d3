#ifndef QUOR_WORKBENCH_SCENARIO_COMMAND_H
#define QUOR_WORKBENCH_SCENARIO_COMMAND_H

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/scenario/script.h"

namespace quor::workbench {

class CRun;

// What follows a command's own words. Every access that the scenario does not satisfy throws
// CScenarioError in words that fit behind "line 12: ".
class CCommandArguments {
 public:
  CCommandArguments(const Statement& statement, size_t commandWords)
      : m_statement(&statement), m_words(std::span(statement.words).subspan(commandWords)) {}

  size_t Count() const { return m_words.size(); }
  std::span<const std::string> Words() const { return m_words; }
  std::span<const std::string> WordsFrom(size_t first) const { return m_words.subspan(first); }
  const std::vector<std::string>& Block() const { return m_statement->block; }
  bool HasBlock() const { return m_statement->hasBlock; }
  // The block as one text, every line ended by a line feed.
  std::string BlockText() const;

  const std::string& Text(size_t index) const;
  bool Is(size_t index, std::string_view word) const;
  // Decimal, or hexadecimal after 0x; between least and most, both included.
  int Number(size_t index, int least, int most) const;
  bool YesNo(size_t index) const;
  // What follows the word `name`, as in "status 4"; nothing when the word is not there.
  std::optional<std::string> After(std::string_view name) const;
  std::optional<int> NumberAfter(std::string_view name, int least, int most) const;

 private:
  const Statement* m_statement;
  std::span<const std::string> m_words;
};

// One command of the language. The table of them is the only place that names commands: running,
// --help and the manual all read it.
struct Command {
  const char* words;      // "expect log"
  const char* arguments;  // "call N|N-M status S", for people
  const char* help;       // one to three sentences
  size_t least;           // words that must follow
  size_t most;
  enum class Block { None, Optional, Required } block;
  // Null for kRepeatCommand, which the run itself plays.
  void (*run)(CRun& run, const CCommandArguments& arguments);
};

inline constexpr char kRepeatCommand[] = "repeat";

inline constexpr size_t kAnyNumber = static_cast<size_t>(-1);

struct CommandGroup {
  const char* title;
  std::span<const Command> commands;
};

std::span<const CommandGroup> CommandGroups();

struct FoundCommand {
  const Command* command;
  size_t words;  // how many of the statement's words name it
};

// The command with the longest match. Throws CScenarioError for an unknown one, for too few or too
// many arguments, and for a block where none belongs or a missing one.
FoundCommand FindCommand(const Statement& statement);

// Every command with its arguments and help; plain text for the terminal, or Markdown.
std::string CommandHelp();
std::string CommandHelpMarkdown();

}  // namespace quor::workbench

#endif
