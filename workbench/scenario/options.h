#ifndef QUOR_WORKBENCH_SCENARIO_OPTIONS_H
#define QUOR_WORKBENCH_SCENARIO_OPTIONS_H

#include <span>
#include <string>

namespace quor::workbench {

// What the command line asks for.
struct Options {
  enum class Task { Interactive, Scenario, Sweep, Replay, Help, HelpMarkdown };
  enum class Telling { Everything, Story, FailuresOnly };

  Task task = Task::Interactive;
  Telling telling = Telling::Everything;
  bool calls = false;        // tells every call of the object model and every event, too
  int outlookVersion = 0;    // 0: the one that suits the bitness
  std::string file;          // of a scenario or a diagnostic log
  std::string addIn;         // ProgID; empty: the only one registered
  std::string dataFolder;    // empty: a fresh one, removed afterwards
  std::string contactsFile;  // of an interactive session
  std::string pictureFolder = ".";
  bool painted = true;       // Outlook's own windows, on the screen
  unsigned stuckAfter = 60;  // seconds
  unsigned sweepFrom = 1;    // the first call of a sweep
  // What a sweep does inside each call in turn.
  enum class Inside { Fail, Disconnect, Release, Quit, Poll, Unplug };
  Inside inside = Inside::Fail;
  std::string outcomes;     // table of what is left after each failure; empty: not checked
  bool neighbours = false;  // other add-ins' windows and hook are there all the time
};

// Throws CScenarioError for what makes no sense.
Options ParseOptions(std::span<const std::string> arguments);

extern const char kUsage[];

}  // namespace quor::workbench

#endif
