#ifndef QUOR_WORKBENCH_COMMANDS_RUN_H
#define QUOR_WORKBENCH_COMMANDS_RUN_H

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "workbench/host/console.h"
#include "workbench/host/thread_executor.h"
#include "workbench/host/workbench.h"
#include "workbench/scenario/script.h"

namespace quor::workbench {

// A running scenario: its preparations, and the log lines and bytes it has consumed so far.
class CRun {
 public:
  CRun(const Stage& stages, CConsole& watcher, IExecutor& executor)
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
  // Drops what the log, the wire and the USB library have recorded.
  void Forget();
  void ForgetLog() { m_logSeen = WholeLog().size(); }
  void ForgetWire() { stage.base.ForgetWritten(); }
  // Calls of the USB library that no expectation has consumed yet.
  std::vector<std::string> NewUsbCalls() { return stage.base.CallTexts(); }
  void ForgetUsbCalls() { stage.base.ForgetCallTexts(); }
  // One line for each object, sink and window that the add-in still holds, and for each misuse,
  // such as a release too many.
  std::vector<std::string> Held();

  // Writes the settings file before the add-in is created.
  void WriteSettings();
  // The calls and events with which this Outlook version ends, in their order, including unloading.
  void QuitOutlook();
  // The same up to the release of the add-in.
  void EndOutlook();
  // Single events of these, timed as parts of the shutdown.
  void CloseExplorer();
  void RaiseQuit();
  // Releases the add-in. Throws CExpectationFailure if it still holds anything of Outlook's.
  void Unload();
  // Opens a main window for an Outlook that has quit and runs again.
  void ReopenOutlook();
  // Waits for this many polls of the add-in's timer.
  void WaitForTicks(int ticks);

  Stage stage;
  CConsole& transcript;
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
