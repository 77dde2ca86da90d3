#ifndef QUOR_WORKBENCH_SCENARIO_SCRIPT_H
#define QUOR_WORKBENCH_SCENARIO_SCRIPT_H

#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

// One command of a scenario, with the lines of its block if any.
struct Statement {
  int line = 0;  // from 1
  std::vector<std::string> words;
  bool hasBlock = false;
  std::vector<std::string> block;
  std::string source;       // the line as written, without indentation and comment
  bool beginsStep = false;  // an empty line stands before it
  int round = 0;            // of the surrounding "repeat", from 1; 0 outside
};

// Splits one line into words. Words are separated by blanks; "#" at the start of a word begins a
// comment. A part in double quotes keeps its blanks and supports \" \\ \n \r \t and \xHH, also
// inside a word (name="ANNA LEE"). Throws CScenarioError.
std::vector<std::string> SplitWords(std::string_view line);

// Reads a whole scenario, UTF-8, one command per line. A command that ends in ":" takes the
// following lines that begin with "|" as its block; the text after "| " is used unchanged. A
// command or block line may begin with a condition, "14+" or "<14": "14+ click ..." and "|<14 ..."
// are skipped if the Outlook version does not meet it. An empty line begins a step. Throws
// CScenarioError with the line number.
std::vector<Statement> ParseScript(std::string_view text, int outlookVersion);

// Evaluates the line "applies to 11 12", "applies to command-bar" or "applies to ribbon"; true if
// there is none.
bool AppliesTo(const std::vector<Statement>& statements, int outlookVersion);

}  // namespace quor::workbench

#endif
