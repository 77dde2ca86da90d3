#ifndef QUOR_WORKBENCH_SCENARIO_REPLAY_H
#define QUOR_WORKBENCH_SCENARIO_REPLAY_H

#include <string>
#include <vector>

namespace quor::workbench {

// A user's diagnostic log as a scenario: plugs the base in and out where the log shows it, and
// sends everything it sent, damaged or not, in order. A log does not contain the user's actions, so
// only the received bytes are replayed.
struct Replay {
  std::string scenario;
  int outlookVersion = 0;  // 0: not in the log
};

// `lines` have no time stamps. Throws CScenarioError for a frame whose byte count is wrong.
Replay ReplayFromLog(const std::vector<std::string>& lines);

// The lines of a log about received data and its handling. A replay must log the same lines.
std::vector<std::string> ReceptionLines(const std::vector<std::string>& lines);

}  // namespace quor::workbench

#endif
