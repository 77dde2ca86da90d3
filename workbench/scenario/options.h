#ifndef QUOR_WORKBENCH_SCENARIO_OPTIONS_H
#define QUOR_WORKBENCH_SCENARIO_OPTIONS_H

#include <span>
#include <string>

namespace quor::workbench {

// The command line's options.
struct Options {
  enum class Task { Interactive, Scenario, Sweep, Replay, Help };
  enum class Telling { Everything, Story, FailuresOnly };

  Task task = Task::Interactive;
  Telling telling = Telling::Everything;
  bool calls = false;        // prints every call of the object model and every event
  int outlookVersion = 0;    // 0: the default for the bitness
  std::string file;          // of a scenario or a diagnostic log
  std::string addIn;         // ProgID; empty: the only one registered
  std::string dataFolder;    // empty: a temporary one
  std::string contactsFile;  // of an interactive session
  std::string pictureFolder = ".";
  bool painted = true;  // Outlook's own windows are drawn on the screen
  int stuckAfter = 60;  // seconds
  int sweepFrom = 1;    // first call of a sweep
  int sweepStep = 1;    // from one call to the next
  // What a sweep does inside each call, one call per round.
  enum class Inside { Fail, Disconnect, Release, Quit, Poll, Unplug };
  Inside inside = Inside::Fail;
  // Table of members whose failure may disable the telephone; empty: not checked.
  std::string outcomes;
  bool registerRunning = false;  // enters the application in the running-object table
  bool neighbours = false;       // other add-ins' windows and hook are always present
};

// Throws CScenarioError for invalid options.
Options ParseOptions(std::span<const std::string> arguments);

extern const char kUsage[];

}  // namespace quor::workbench

#endif
