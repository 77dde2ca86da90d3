#ifndef QUOR_WORKBENCH_COMMANDS_PLAYER_H
#define QUOR_WORKBENCH_COMMANDS_PLAYER_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/commands/run.h"
#include "workbench/host/console.h"
#include "workbench/host/message_loop.h"
#include "workbench/host/thread_executor.h"
#include "workbench/host/workbench.h"
#include "workbench/scenario/options.h"

namespace quor::workbench {

// Exit codes of the program; scripts read them.
enum ExitCode { kGood = 0, kFailed = 1, kNotPlayed = 2, kOtherVersion = 77 };

// The default Outlook version.
inline constexpr int kUsualVersion = sizeof(void*) == 8 ? 16 : 11;

// Plays the scenario, sweep or replay of the command line. Lives on the script's thread; every
// workbench is created and destroyed on Outlook's thread.
class CPlayer {
 public:
  CPlayer(const Options& options, CMessageLoop& loop, CThreadExecutor& executor);

  // Returns the exit code. Throws errors to show to the user.
  int Play();

 private:
  void Open();
  void Close();
  CRun NewRun(CConsole& transcript);
  int PlayScenario(const std::vector<Statement>& statements);
  int Sweep(const std::vector<Statement>& statements);
  bool SweepRound(const std::vector<Statement>& statements, uint64_t call, bool& good);
  // Makes the round's call fail, or something else happen inside it.
  void Aim(CRun& run, uint64_t call);
  void ActInside(CRun& run);
  bool TelephoneWorks(CRun& run);
  bool CheckOutcome(CRun& run, const std::string& member);
  bool AllOutcomesSeen() const;
  int PlayReplay();

  Options m_options;
  CMessageLoop& m_loop;
  CThreadExecutor& m_executor;
  CConsole m_console;
  std::unique_ptr<CWorkbench> m_workbench;
  std::optional<std::string> m_called;  // the member of the round's call, after the call
  std::string m_failedInside;           // the error inside it
  // Members whose failure may disable the telephone, and whether one has.
  std::map<std::string, bool> m_idleAfter;
};

}  // namespace quor::workbench

#endif
