#include "workbench/host/player.h"

#include <algorithm>

#include "workbench/scenario/log_lines.h"
#include "workbench/scenario/replay.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

std::string FolderOf(const std::string& path) {
  const size_t end = path.find_last_of("/\\");
  return end == std::string::npos ? std::string() : path.substr(0, end + 1);
}

// Parses lines such as "11 14 Application.Explorers": versions, then the member. "#" begins a
// comment.
std::vector<std::string> ReadOutcomes(const std::string& text, int version) {
  std::vector<std::string> members;
  for (const Statement& line : ParseScript(text, version)) {
    const auto end = line.words.end() - 1;
    if (std::find(line.words.begin(), end, std::to_string(version)) != end) members.push_back(*end);
  }
  return members;
}

Bytes CallOnLine1() {
  constexpr uint8_t kRinging = 2;
  LineReport report;
  report.line1 = kRinging;
  return ReceiveCallFrame(*LineTypeFromName("line1"), report);
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

// Each round fails the next call, until the session has no such call.
int CPlayer::Sweep(const std::vector<Statement>& statements) {
  if (!m_options.outcomes.empty()) {
    m_idleAfter = ReadOutcomes(ReadNamedFile(m_options.outcomes), m_options.outlookVersion);
  }
  bool good = true;
  uint64_t call = m_options.sweepFrom;
  while (SweepRound(statements, call, good))
    ++call;
  PrintLine("calls of the object model swept: " + std::to_string(call - m_options.sweepFrom));
  return good ? kGood : kFailed;
}

// False if the session has no such call.
bool CPlayer::SweepRound(const std::vector<Statement>& statements, uint64_t call, bool& good) {
  Open();
  m_called.reset();
  m_failedInside.clear();
  CConsole quiet(Options::Telling::FailuresOnly);
  CConsole::SetRound(call);
  CRun run = NewRun(quiet);
  m_executor.Do([&] {
    Aim(run, call);
    m_workbench->Host().HastenTimers();
    m_workbench->Host().KeepModule();
  });
  run.PlayUnderFaults(statements);
  bool right = true;
  if (m_options.inside == Options::Inside::Fail && m_called && !m_options.outcomes.empty()) {
    right = CheckOutcome(run, *m_called);
  }
  right = run.Finish() && right;
  if (!m_failedInside.empty()) {
    PrintLine("FAILED inside the call: " + m_failedInside);
    right = false;
  }
  Close();
  const std::string round = std::to_string(call) + (m_called ? " " + *m_called : "");
  if (m_called && m_options.telling == Options::Telling::Everything) PrintLine("    " + round);
  if (!right) PrintLine("  in call " + round);
  good = good && right;
  return m_called.has_value();
}

void CPlayer::Aim(CRun& run, uint64_t call) {
  Hook hook;
  hook.nth = call;
  CModel& model = m_workbench->Outlook().Model();
  hook.action = [this, &run, &model] {
    m_called = model.LastEntered();
    if (m_options.inside != Options::Inside::Fail) ActInside(run);
  };
  model.AddHook(std::move(hook));
  if (m_options.inside != Options::Inside::Fail) return;
  Fault fault;
  fault.first = fault.last = call;
  model.AddFault(fault);
}

void CPlayer::ActInside(CRun& run) {
  constexpr int kUserClosed = 1;
  using enum Options::Inside;
  CAddInHost& host = m_workbench->Host();
  ISimulatedBase& base = m_workbench->Base();
  try {
    switch (m_options.inside) {
      case Fail:
        return;
      case Disconnect:
        host.Disconnect(kUserClosed);
        return;
      case Release:
        host.Disconnect(kUserClosed);
        host.ReleaseInside();
        return;
      case Quit:
        run.EndOutlook();
        return;
      case Poll:
        base.Queue(CallOnLine1());
        host.Poll();
        return;
      case Unplug:
        if (base.DeviceCount() != 0) base.Unplug();
        host.Poll();
        return;
    }
  } catch (const CScenarioError&) {
    // The session is not at a point where this can be done.
  } catch (const CExpectationFailure& failure) {
    m_failedInside = failure.what();
  }
}

// Checks that the telephone still works after the failure: a frame of the base is read and handled.
bool CPlayer::CheckOutcome(CRun& run, const std::string& member) {
  bool works = false;
  m_executor.Do([&] {
    try {
      run.ForgetLog();
      ISimulatedBase& base = m_workbench->Base();
      if (base.DeviceCount() == 0) base.Plug();
      m_workbench->Host().Poll();  // finds the base if necessary
      base.Queue(CallOnLine1());
      m_workbench->Host().Poll();
      m_workbench->Host().Pump();
      for (const std::string& line : run.NewLogLines())
        works = works || line.find("OnEventGet") != std::string::npos;
    } catch (const std::runtime_error&) {
      // Without a window for the timers or a log there is no telephone.
    }
  });
  const bool mayBeIdle =
      std::find(m_idleAfter.begin(), m_idleAfter.end(), member) != m_idleAfter.end();
  if (works || mayBeIdle) return true;
  PrintLine("FAILED the telephone does not work after the failure of " + member);
  return false;
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
