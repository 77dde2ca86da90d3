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

// Receives a run's output. A scenario always produces the same output.
class ITranscript {
 public:
  virtual void Command(const Statement& statement) = 0;
  // A line of the scenario's story for the reader.
  virtual void Say(const std::string& text) = 0;
  // Something that the scenario asked to see, or an observation; may have several lines.
  virtual void Show(const std::string& text) = 0;
  virtual void Failure(const std::string& text) = 0;

 protected:
  ~ITranscript() = default;
};

// Executes the steps of a run. On Windows each step runs on Outlook's thread; the next one starts
// while a step is still inside a window that waits for the user.
class IExecutor {
 public:
  // Exceptions of the action are thrown by this call or a later one.
  virtual void Do(const std::function<void()>& action) = 0;

 protected:
  ~IExecutor() = default;
};

// A running scenario: its preparations, and the log lines and bytes it has consumed so far.
class CRun {
 public:
  CRun(const Stage& stages, ITranscript& watcher, IExecutor& executor)
      : stage(stages), transcript(watcher), m_executor(executor) {}

  // Runs to the end or to the first failed expectation; true if all succeeded. Outlook is left as
  // it is then: see Finish.
  bool Play(const std::vector<Statement>& statements);
  // The same after a fault in the object model: ignores expectations, and steps that are impossible
  // now. Finish checks what must hold even then.
  void PlayUnderFaults(const std::vector<Statement>& statements);
  // Plays commands inside another command, which reports their errors when it ends.
  void PlayInside(const std::vector<Statement>& statements);
  // Plays a command that must fail; returns its message, or an empty text if it succeeded.
  std::string FailureOf(const Statement& statement);
  // Quits Outlook if it still runs, and checks that the add-in has released everything.
  bool Finish();

  // Log lines and written bytes that no expectation has consumed yet.
  std::vector<std::string> NewLogLines();
  std::vector<std::string> WholeLog();
  Bytes NewWire();
  void ForgetLog() { m_logSeen = WholeLog().size(); }
  void ForgetWire() { stage.base.ForgetWritten(); }
  // Calls of the USB library that no expectation has consumed yet.
  std::vector<std::string> NewUsbCalls() { return stage.base.CallTexts(); }
  void ForgetUsbCalls() { stage.base.ForgetCallTexts(); }

  // Writes the settings file before the add-in is created.
  void WriteSettings();
  // The calls and events with which this Outlook version ends, in their order, including unloading.
  void QuitOutlook();
  // The same up to the release of the add-in.
  void EndOutlook();
  // Releases the add-in. Throws CExpectationFailure if it still holds anything of Outlook's.
  void Unload();
  // Opens a main window for an Outlook that has quit and runs again.
  void ReopenOutlook();
  // Waits for this many polls of the add-in's timer.
  void WaitForTicks(int ticks);

  Stage stage;
  ITranscript& transcript;
  uint32_t lastResult = 0;
  // Base of relative paths in a scenario; ends in a separator or is empty.
  std::string scenarioFolder;
  std::vector<std::string> notedHeld;

  enum class Settings { Default, None, Given } settings = Settings::Default;
  std::string givenSettings;
  std::map<std::string, std::string> systemSettings;  // elements of the default file

  // What was held at "note use".
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
  bool m_hasQuit = false;         // and its main window is closed
  size_t m_logSeen = 0;
};

}  // namespace quor::workbench

#endif
