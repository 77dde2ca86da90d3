#include "workbench/host/player.h"

#include "workbench/scenario/log_lines.h"
#include "workbench/scenario/replay.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

std::string FolderOf(const std::string& path) {
  const size_t end = path.find_last_of("/\\");
  return end == std::string::npos ? std::string() : path.substr(0, end + 1);
}

std::string ReadNamedFile(const std::string& path) {
  const std::optional<std::string> text = ReadWholeFile(WideFromUtf8(path));
  if (!text) throw CScenarioError("no such file: " + path);
  return *text;
}

}  // namespace

CPlayer::CPlayer(const Options& options, CMessageLoop& loop, CThreadExecutor& executor)
    : m_options(options), m_loop(loop), m_executor(executor), m_console(options.telling) {}

int CPlayer::Play() {
  if (m_options.task == Options::Task::Replay) return PlayReplay();
  if (m_options.outlookVersion == 0) m_options.outlookVersion = kUsualVersion;
  const std::vector<Statement> statements =
      ParseScript(ReadNamedFile(m_options.file), m_options.outlookVersion);
  if (!AppliesTo(statements, m_options.outlookVersion)) {
    PrintLine("not for Outlook " + std::to_string(m_options.outlookVersion));
    return kOtherVersion;
  }
  return m_options.task == Options::Task::Sweep ? Sweep(statements) : PlayScenario(statements);
}

void CPlayer::Open() {
  m_executor.Do([this] {
    m_workbench = std::make_unique<CWorkbench>(m_options, m_loop);
    m_workbench->Host().CatchOpening();
  });
}

void CPlayer::Close() {
  m_executor.Do([this] { m_workbench.reset(); });
}

CRun CPlayer::NewRun(ITranscript& transcript) {
  CRun run(m_workbench->Stages(), transcript, m_executor);
  run.scenarioFolder = FolderOf(m_options.file);
  return run;
}

int CPlayer::PlayScenario(const std::vector<Statement>& statements) {
  Open();
  CRun run = NewRun(m_console);
  const bool played = run.Play(statements);
  const bool finished = run.Finish();
  Close();
  return played && finished ? kGood : kFailed;
}

// With each round one call later fails, until the fault lies behind the last call.
int CPlayer::Sweep(const std::vector<Statement>& statements) {
  bool good = true;
  uint64_t call = m_options.sweepFrom;
  while (SweepRound(statements, call, good))
    ++call;
  PrintLine("calls of the object model made to fail: " +
            std::to_string(call - m_options.sweepFrom));
  return good ? kGood : kFailed;
}

// False when the session has no such call any more.
bool CPlayer::SweepRound(const std::vector<Statement>& statements, uint64_t call, bool& good) {
  Open();
  CModel& model = m_workbench->Outlook().Model();
  m_executor.Do([&] {
    Fault fault;
    fault.first = fault.last = call;
    model.AddFault(fault);
    m_workbench->Host().HastenTimers();
    m_workbench->Host().KeepModule();
  });
  CConsole quiet(Options::Telling::FailuresOnly);
  CRun run = NewRun(quiet);
  run.PlayUnderFaults(statements);
  const bool finished = run.Finish();
  const bool fired = model.FaultsFired() > 0;
  const std::string member = model.LastFaulted();
  Close();
  if (fired && m_options.telling == Options::Telling::Everything) {
    PrintLine("    " + std::to_string(call) + " " + member);
  }
  if (!finished) {
    PrintLine("  that was with call " + std::to_string(call) + " failing, " + member);
    good = false;
  }
  return fired;
}

int CPlayer::PlayReplay() {
  const std::vector<std::string> before = ReadLogLines(ReadNamedFile(m_options.file)).texts;
  const Replay replay = ReplayFromLog(before);
  if (m_options.outlookVersion == 0) {
    m_options.outlookVersion = replay.outlookVersion ? replay.outlookVersion : kUsualVersion;
  }
  Open();
  CRun run = NewRun(m_console);
  bool same = run.Play(ParseScript(replay.scenario, m_options.outlookVersion));
  std::vector<std::string> after;
  m_executor.Do([&] { after = run.WholeLog(); });
  const std::string difference = DescribeDifference(ReceptionLines(before), ReceptionLines(after));
  if (!difference.empty()) {
    PrintLine("DIFFERENT from the log:\n" + difference);
    same = false;
  }
  const bool finished = run.Finish();
  Close();
  return same && finished ? kGood : kFailed;
}

}  // namespace quor::workbench
