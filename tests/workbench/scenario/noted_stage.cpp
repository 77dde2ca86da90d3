#include "tests/workbench/scenario/noted_stage.h"

#include <gtest/gtest.h>

namespace quor::workbench {

std::string CNotedStage::Play(const std::string& scenario) {
  m_failure.clear();
  CRun run(Stages(), *this, *this);
  const bool good = run.Play(ParseScript(scenario, version));
  EXPECT_EQ(good, m_failure.empty());
  return m_failure;
}

void CNotedStage::Poll() {
  use.blocks += moreAtPoll.blocks;
  use.bytes += moreAtPoll.bytes;
  use.handles += moreAtPoll.handles;
  use.gdiObjects = *use.gdiObjects + moreAtPoll.gdiObjects.value_or(0);
  use.windows += moreAtPoll.windows;
}

void CNotedStage::WriteFile(const std::string& path, const std::string& content) {
  files[path] = content;
  Note("write " + path);
}

std::optional<std::string> CNotedStage::ReadFile(const std::string& path) {
  const auto found = files.find(path);
  if (found == files.end()) return std::nullopt;
  return found->second;
}

std::vector<std::string> CNotedStage::ListFiles() {
  std::vector<std::string> names;
  for (const auto& [name, content] : files)
    names.push_back(name);
  return names;
}

}  // namespace quor::workbench
