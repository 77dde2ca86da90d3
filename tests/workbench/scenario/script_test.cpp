#include "workbench/scenario/script.h"

#include <gmock/gmock.h>

#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Words = std::vector<std::string>;

TEST(Script, SplitsLinesIntoWords) {
  const struct {
    const char* line;
    Words words;
  } rows[] = {
      {"", {}},
      {"  \t ", {}},
      {"# nothing but a comment", {}},
      {"plug", {"plug"}},
      {"queue 26 01   0D # the rest", {"queue", "26", "01", "0D"}},
      {R"(type "Dial number" "#31# 5")", {"type", "Dial number", "#31# 5"}},
      {"queue caller-id name=\"ANNA  LEE\" number=5",
       {"queue", "caller-id", "name=ANNA  LEE", "number=5"}},
      {R"(say "a \"b\" \\ \n\t\r \xE9")", {"say", "a \"b\" \\ \n\t\r \xE9"}},
      {"say \"\"", {"say", ""}},
      {"a#b", {"a#b"}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(SplitWords(row.line), row.words) << row.line;
}

TEST(Script, RefusesBrokenTextsAndBlocksWithTheLineNumber) {
  const struct {
    const char* script;
    const char* error;
  } rows[] = {
      {"plug\nsay \"open", "line 2: a quoted text does not end"},
      {"say \"\\", "line 1: a quoted text does not end"},
      {R"(say "\q")", "line 1: unknown escape \\q"},
      {R"(say "\x4")", "two hexadecimal digits"},
      {"| stray", "line 1: a line that begins with |"},
      {"plug\n\n| stray", "line 3: a line that begins with |"},
      {":", "line 1: a block needs a command"},
      {"14+", "line 1: a condition needs a command"},
      {"expect log:\n|no blank", "line 2: after | comes a blank"},
  };
  for (const auto& row : rows) {
    try {
      ParseScript(row.script, 11);
      ADD_FAILURE() << row.script;
    } catch (const CScenarioError& error) {
      EXPECT_THAT(error.what(), HasSubstr(row.error));
    }
  }
}

TEST(Script, TakesBlockLinesAsTheyStand) {
  const std::vector<Statement> statements = ParseScript(
      "expect log:   # what was said\r\n"
      "  | \"quoted\" # kept  \r\n"
      "  |\n"
      "  |  indented\n"
      "\n"
      "expect window \"A: b\" shown :\n"
      "| x\n"
      "say \"ends:\"\n",
      11);
  ASSERT_EQ(statements.size(), 3u);
  EXPECT_THAT(statements[0].words, ElementsAre("expect", "log"));
  EXPECT_THAT(statements[0].block, ElementsAre("\"quoted\" # kept  ", "", " indented"));
  EXPECT_EQ(statements[0].source, "expect log:");
  EXPECT_THAT(statements[1].words, ElementsAre("expect", "window", "A: b", "shown"));
  EXPECT_TRUE(statements[1].hasBlock);
  EXPECT_EQ(statements[1].line, 6);
  EXPECT_TRUE(statements[1].beginsStep);
  EXPECT_FALSE(statements[2].hasBlock);
  EXPECT_FALSE(statements[2].beginsStep);
}

TEST(Script, KeepsWhatIsForTheVersion) {
  const char* script =
      "<14 plug\n"
      "14+ unplug\n"
      "expect log:\n"
      "| both {outlook}\n"
      "|<14 bar\n"
      "|14+ ribbon\n"
      "<12 expect log:\n"
      "| gone with its command\n";
  const std::vector<Statement> below = ParseScript(script, 12);
  ASSERT_EQ(below.size(), 2u);
  EXPECT_THAT(below[0].words, ElementsAre("plug"));
  EXPECT_THAT(below[1].block, ElementsAre("both 12", "bar"));
  const std::vector<Statement> above = ParseScript(script, 14);
  EXPECT_THAT(above[0].words, ElementsAre("unplug"));
  EXPECT_THAT(above[1].block, ElementsAre("both 14", "ribbon"));
  EXPECT_EQ(ParseScript(script, 11).size(), 3u);
}

TEST(Script, SaysWhichVersionsItAppliesTo) {
  const struct {
    const char* script;
    bool below;
    bool above;
  } rows[] = {{"plug", true, true},
              {"applies to command-bar", true, false},
              {"applies to ribbon", false, true},
              {"plug\napplies to 9 11 14", true, true},
              {"applies to 12", false, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(AppliesTo(ParseScript(row.script, 11), 11), row.below) << row.script;
    EXPECT_EQ(AppliesTo(ParseScript(row.script, 14), 14), row.above) << row.script;
  }
}

}  // namespace
}  // namespace quor::workbench
