#ifndef QUOR_WORKBENCH_SCENARIO_RUN_H
#define QUOR_WORKBENCH_SCENARIO_RUN_H

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "workbench/scenario/script.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// What a run tells whoever watches. The same scenario tells the same, word for word.
class ITranscript {
 public:
  virtual void Command(const Statement& statement) = 0;
  // A line of the story that the scenario tells its reader.
  virtual void Say(const std::string& text) = 0;
  // Something the scenario asked to see, or an observation on the way; may hold several lines.
  virtual void Show(const std::string& text) = 0;
  virtual void Failure(const std::string& text) = 0;

 protected:
  ~ITranscript() = default;
};

// Where the steps of a run happen. The Windows side runs each on Outlook's own thread, and goes on
// with the next while a step is still inside a window that waits for its user.
class IExecutor {
 public:
  // What the action throws comes out here, at this call or at a later one.
  virtual void Do(const std::function<void()>& action) = 0;

 protected:
  ~IExecutor() = default;
};

// One scenario on its way: what it has set up and how much of the log and of the wire it has seen.
class CRun {
 public:
  CRun(const Stage& stages, ITranscript& watcher, IExecutor& executor)
      : stage(stages), transcript(watcher), m_executor(executor) {}

  // Runs to the end or to the first thing that is not as the scenario says; true when all was.
  // Afterwards Outlook is left as it is: see Finish.
  bool Play(const std::vector<Statement>& statements);
  // Plays the same but ignores what is expected and steps that cannot be done any more, since some
  // call of the object model was made to fail. What must hold even then is checked by Finish.
  void PlayUnderFaults(const std::vector<Statement>& statements);
  // Plays some commands in the middle of another one. What goes wrong is reported when that one
  // ends.
  void PlayInside(const std::vector<Statement>& statements);
  // Quits Outlook if it still runs and checks that the add-in let go of everything.
  bool Finish();

  // Diagnostic lines and written bytes that no expectation has consumed yet.
  std::vector<std::string> NewLogLines();
  std::vector<std::string> WholeLog();
  Bytes NewWire();
  void ForgetLog();
  void ForgetWire();
  // Calls of the USB library that no expectation has consumed yet.
  std::vector<std::string> NewUsbCalls();
  void ForgetUsbCalls();

  // Writes the settings file before the add-in is made.
  void WriteSettings();
  // The order of calls and events with which this Outlook version ends, unloading included.
  void QuitOutlook();
  // The same up to the moment where Outlook lets the add-in go.
  void EndOutlook();
  // Lets the add-in go. Throws CExpectationFailure when it still holds anything of Outlook's.
  void Unload();
  // A main window for an Outlook that was quit and is to run again.
  void ReopenOutlook();
  // Counts the device polls of the add-in's timer.
  void WaitForTicks(int ticks);

  Stage stage;
  ITranscript& transcript;
  uint32_t lastResult = 0;
  // Relative paths in a scenario begin here; ends in a separator or is empty.
  std::string scenarioFolder;
  std::vector<std::string> notedHeld;

  enum class Settings { Default, None, Given } settings = Settings::Default;
  std::string givenSettings;
  std::map<std::string, std::string> systemSettings;  // elements of the default file

  // What was held when "note use" asked for it.
  struct NotedUse {
    ResourceUse process;
    size_t objects = 0;
  };
  std::optional<NotedUse> notedUse;

 private:
  bool PlayOne(const Statement& statement);
  void Step(const Statement& statement);
  void CheckNothingHeld();

  IExecutor& m_executor;
  std::string m_failedInside;
  unsigned m_tickLimit = 10'000;  // milliseconds
  bool m_hasQuit = false;         // and its main window is gone
  size_t m_logSeen = 0;
};

}  // namespace quor::workbench

#endif
