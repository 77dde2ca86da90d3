#include "workbench/scenario/command.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

#include "tests/workbench/scenario/noted_stage.h"

namespace quor::workbench {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Commands, RefuseWhatMakesNoSense) {
  const struct {
    const char* line;
    const char* error;
  } rows[] = {
      {"plugg", "unknown command \"plugg\""},
      {"ring line3", "is not line1"},
      {"caller gives up", "nothing rings"},
      {"other side hangs up line1", "no call on that line"},
      {"queue", "usage: queue HEX"},
      {"queue 2", "not hexadecimal"},
      {"queue 41*x", "not hexadecimal"},
      {"queue 41*99999999", "not hexadecimal"},
      {"queue 26 pause", "missing at the end"},
      {"queue 26 pause 3", "no bytes"},
      {"queue cut 5 0 close-popup", "only 5 bytes"},
      {"plug colour=red", "is not serial="},
      {"unplug 0", "not a number from 1 to 10"},
      {"fail SI_Open call 2", "which status?"},
      {"fail SI_Open call 0 status 1", "not a call number"},
      {"fail SI_Open call 5-2 status 1", "not a call number"},
      {"fail member any cal 3", "neither call nor status"},
      {"expect use", "\"note use\" is missing"},
      {"expect watched 1", "only 0 times"},
      {"expect log", "usage: expect log"},
      {"expect log nothing:\n| x", "usage: expect log"},
      {"expect log:", "the block is empty"},
      {"expect whole log", "needs a block"},
      {"plug:\n| x", "takes no block"},
      {"ticks many", "not a number"},
      {"ticks 99999999999", "not a number"},
      {"expect result S_PERHAPS", "unknown result"},
      {"expect window Title", "usage: expect window"},
      {"expect window Title open", "usage: expect window"},
      {"picture idle scale 120", "at 100, 150 and 200 %"},
      {"picture idle menu", "missing at the end"},
      {"picture idle bright", "\"bright\" has no meaning"},
      {"disconnect 4", "not a number from 0 to 3"},
  };
  for (const auto& row : rows) {
    CNotedStage stage;
    stage.windows = {{"Title", "#32770", true, {}}};
    EXPECT_THAT(stage.Play(row.line), HasSubstr(row.error)) << row.line;
  }
}

// The manual's lines, each of which names one command: "- `expect log [nothing] [:]`".
TEST(Commands, AreTheOnesInTheManual) {
  std::vector<std::string> lines;
  std::istringstream manual(kCommandHelpMarkdown);
  for (std::string line; std::getline(manual, line);) {
    if (line.starts_with("- `")) lines.push_back(line.substr(3, line.size() - 4));
  }
  std::set<std::string> names;
  size_t at = 0;
  for (const auto& group : CommandGroups()) {
    for (const Command& command : group) {
      EXPECT_TRUE(names.insert(command.words).second) << command.words;
      ASSERT_LT(at, lines.size()) << command.words;
      const std::string& line = lines[at++];
      EXPECT_THAT(line, StartsWith(command.words));
      EXPECT_EQ(line.ends_with(" [:]"), command.block == Command::Block::Optional) << line;
      EXPECT_EQ(line.ends_with(':'), command.block == Command::Block::Required) << line;
      EXPECT_THAT(CommandHelp(), HasSubstr("\n  " + line + "\n      "));
    }
  }
  EXPECT_EQ(at, lines.size());
}

}  // namespace
}  // namespace quor::workbench
