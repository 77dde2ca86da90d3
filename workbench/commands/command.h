#ifndef QUOR_WORKBENCH_COMMANDS_COMMAND_H
#define QUOR_WORKBENCH_COMMANDS_COMMAND_H

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/scenario/script.h"

namespace quor::workbench {

class CRun;

// The words after a command's own. A missing or wrong word throws CScenarioError with a text that
// fits after "line 12: ".
class CCommandArguments {
 public:
  CCommandArguments(const Statement& statement, size_t commandWords)
      : m_statement(&statement), m_words(std::span(statement.words).subspan(commandWords)) {}

  size_t Count() const { return m_words.size(); }
  std::span<const std::string> Words() const { return m_words; }
  std::span<const std::string> WordsFrom(size_t first) const { return m_words.subspan(first); }
  const std::vector<std::string>& Block() const { return m_statement->block; }
  bool HasBlock() const { return m_statement->hasBlock; }
  // The block as one text, each line with a line feed.
  std::string BlockText() const;

  // The commands inside this one: the words from `first` on and the block are one command; without
  // such words, the block has the commands.
  std::vector<Statement> Commands(size_t first, int outlookVersion) const;

  const std::string& Text(size_t index) const;
  bool Is(size_t index, std::string_view word) const;
  // Which of the words it is, from 0; throws the usage for any other word.
  size_t Choice(size_t index, std::initializer_list<std::string_view> words) const;
  // A decimal number, or hexadecimal after 0x, from `least` to `most`.
  int Number(size_t index, int least, int most) const;
  // The word after the word `name`, as in "status 4"; nothing if `name` is missing.
  std::optional<std::string> After(std::string_view name) const;
  std::optional<int> NumberAfter(std::string_view name, int least, int most) const;
  // Throws CScenarioError with the command's usage.
  [[noreturn]] void ThrowUsage() const;

 private:
  const Statement* m_statement;
  std::span<const std::string> m_words;
};

// One command of the language. Only the table of commands names them. What a command does and which
// words follow stands in the manual, docs/workbench.md, whose list --help prints.
struct Command {
  const char* words;  // "expect log"
  size_t least;       // number of words that must follow
  size_t most;
  enum class Block { None, Optional, Required } block;
  // Null for kRepeatCommand, which the run handles itself.
  void (*run)(CRun& run, const CCommandArguments& arguments);
};

inline constexpr char kRepeatCommand[] = "repeat";

inline constexpr size_t kAnyNumber = static_cast<size_t>(-1);

// All commands, in one part for each subject.
std::span<const std::span<const Command>> CommandGroups();

struct FoundCommand {
  const Command* command;
  size_t words;  // number of the statement's words that name it
};

// The command with the longest match. Throws CScenarioError for an unknown command, too few or too
// many arguments, and a missing or unexpected block.
FoundCommand FindCommand(const Statement& statement);

// The manual's list of commands.
extern const char kCommandHelp[];

}  // namespace quor::workbench

#endif
