#ifndef QUOR_WORKBENCH_SCENARIO_REPLAY_H
#define QUOR_WORKBENCH_SCENARIO_REPLAY_H

#include <string>
#include <vector>

namespace quor::workbench {

// A diagnostic log from the field as a scenario: the base plugged in and pulled out where the log
// says so, and everything it sent, damaged or not, in order. What the user did is not in a log, so
// only what comes off the wire is played again.
struct Replay {
  std::string scenario;
  int outlookVersion = 0;  // 0: the log does not tell
};

// `lines` without time stamps. Throws CScenarioError for a frame whose count and bytes disagree.
Replay ReplayFromLog(const std::vector<std::string>& lines);

// The lines of a log that tell what was received and what became of it. They must be the same when
// the log is played again.
std::vector<std::string> ReceptionLines(const std::vector<std::string>& lines);

}  // namespace quor::workbench

#endif
