#include "workbench/commands/command.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

namespace quor::workbench {
namespace {

using testing::StartsWith;

// The manual's lines, each of which names one command: "- `expect files:`".
TEST(Commands, AreTheOnesInTheManual) {
  std::vector<std::string> lines;
  std::istringstream manual(kCommandHelp);
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
    }
  }
  EXPECT_EQ(at, lines.size());
}

}  // namespace
}  // namespace quor::workbench
