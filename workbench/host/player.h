#ifndef QUOR_WORKBENCH_HOST_PLAYER_H
#define QUOR_WORKBENCH_HOST_PLAYER_H

#include <memory>
#include <string>
#include <vector>

#include "workbench/host/console.h"
#include "workbench/host/message_loop.h"
#include "workbench/host/thread_executor.h"
#include "workbench/host/workbench.h"
#include "workbench/scenario/options.h"

namespace quor::workbench {

// What a run ends with; scripts read it.
enum ExitCode { kGood = 0, kFailed = 1, kNotPlayed = 2, kOtherVersion = 77 };

// The version to be where nothing asks for another: what a person of today and one of then would
// start.
inline constexpr int kUsualVersion = sizeof(void*) == 8 ? 16 : 11;

// Plays the scenario, the sweep or the replay that the command line asks for. Lives on the script's
// thread; every workbench is made and ended on Outlook's.
class CPlayer {
 public:
  CPlayer(const Options& options, CMessageLoop& loop, CThreadExecutor& executor);

  // The exit code. Throws what a person at the keyboard must be told.
  int Play();

 private:
  void Open();
  void Close();
  CRun NewRun(ITranscript& transcript);
  int PlayScenario(const std::vector<Statement>& statements);
  int Sweep(const std::vector<Statement>& statements);
  bool SweepRound(const std::vector<Statement>& statements, uint64_t call, bool& good);
  // Has the round's call fail, or something else happen inside it.
  void Aim(CRun& run, uint64_t call);
  void ActInside(CRun& run);
  bool CheckOutcome(CRun& run, const std::string& member);
  int PlayReplay();

  Options m_options;
  CMessageLoop& m_loop;
  CThreadExecutor& m_executor;
  CConsole m_console;
  std::unique_ptr<CWorkbench> m_workbench;
  std::optional<std::string> m_called;   // the member of the round's call, once it was made
  std::string m_failedInside;            // what went wrong inside it
  std::vector<std::string> m_idleAfter;  // members whose failure may leave no telephone
};

}  // namespace quor::workbench

#endif
