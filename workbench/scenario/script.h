#ifndef QUOR_WORKBENCH_SCENARIO_SCRIPT_H
#define QUOR_WORKBENCH_SCENARIO_SCRIPT_H

#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

// One command of a scenario, with the lines of its block if it has one.
struct Statement {
  int line = 0;  // from 1
  std::vector<std::string> words;
  bool hasBlock = false;
  std::vector<std::string> block;
  std::string source;  // the line as written, without indentation and comment
  int round = 0;       // of the "repeat" it stands in, from 1; 0 outside
};

// Splits one line into words. Blanks separate; "#" at the start of a word begins a comment; a part
// in double quotes keeps its blanks and knows \" \\ \n \r \t and \xHH, also inside a word
// (name="ANNA LEE"). Throws CScenarioError.
std::vector<std::string> SplitWords(std::string_view line);

// Reads a whole scenario, UTF-8, one command per line. A command that ends in ":" takes the lines
// after it that begin with "|"; of those, what follows "| " is taken as it stands. A command or a
// line of a block may begin with a condition, "14+" or "<14": "14+ click ..." and "|<14 ..." are
// left out where the Outlook version does not meet it. Throws CScenarioError with the line number.
std::vector<Statement> ParseScript(std::string_view text, int outlookVersion);

// What the line "applies to 11 12", "applies to command-bar" or "applies to ribbon" says; true
// without one.
bool AppliesTo(const std::vector<Statement>& statements, int outlookVersion);

}  // namespace quor::workbench

#endif
