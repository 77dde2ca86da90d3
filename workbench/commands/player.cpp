#include "workbench/commands/player.h"

#include <algorithm>

#include "workbench/scenario/log_lines.h"
#include "workbench/scenario/replay.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr uint64_t kNoCall = UINT64_MAX;

std::string FolderOf(const std::string& path) {
  const size_t end = path.find_last_of("/\\");
  return end == std::string::npos ? std::string() : path.substr(0, end + 1);
}

// Parses lines such as "11 14 Application.Explorers": versions, then the member. "#" begins a
// comment.
std::map<std::string, bool> ReadOutcomes(const std::string& text, int version) {
  std::map<std::string, bool> members;
  for (const Statement& line : ParseScript(text, version)) {
    const auto end = line.words.end() - 1;
    if (std::find(line.words.begin(), end, std::to_string(version)) != end) {
      members.emplace(*end, false);
    }
  }
  return members;
}

Bytes CallOnLine1() {
  constexpr uint8_t kRinging = 2;
  LineReport report;
  report.line1 = kRinging;
  return ReceiveCallFrame(*LineTypeFromName("line1"), report);
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

CRun CPlayer::NewRun(CConsole& transcript) {
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
  auto call = static_cast<uint64_t>(m_options.sweepFrom);
  uint64_t rounds = 0;
  // The add-in asks for the id of a name once: after a session without any failure the calls have
  // the same numbers in every round.
  SweepRound(statements, kNoCall, good);
  for (; SweepRound(statements, call, good); call += static_cast<uint64_t>(m_options.sweepStep))
    ++rounds;
  PrintLine("calls of the object model swept: " + std::to_string(rounds));
  const bool whole = m_options.sweepFrom == 1 && m_options.sweepStep == 1;
  return good && (!whole || AllOutcomesSeen()) ? kGood : kFailed;
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
  CBaseSimulator& base = m_workbench->Base();
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

// Whether the add-in's own timer polls the base, reads a frame and handles it.
bool CPlayer::TelephoneWorks(CRun& run) {
  constexpr unsigned kLimit = 1000;  // milliseconds
  CAddInHost& host = m_workbench->Host();
  CBaseSimulator& base = m_workbench->Base();
  try {
    if (base.DeviceCount() == 0) base.Plug();
    if (!host.PumpUntil([&base] { return base.OpenHandles() != 0; }, kLimit)) return false;
    run.ForgetLog();
    base.Queue(CallOnLine1());
    const auto handled = [&run] {
      return std::ranges::any_of(run.NewLogLines(), [](const std::string& line) {
        return line.find("OnEventGet") != std::string::npos;
      });
    };
    return host.PumpUntil(handled, kLimit);
  } catch (const std::runtime_error&) {
    return false;  // there is no log
  }
}

// Whether the failure of the member has the result that the table names.
bool CPlayer::CheckOutcome(CRun& run, const std::string& member) {
  bool works = false;
  m_executor.Do([&] { works = TelephoneWorks(run); });
  if (works) return true;
  const auto idle = m_idleAfter.find(member);
  if (idle == m_idleAfter.end()) {
    PrintLine("FAILED the telephone does not work after the failure of " + member);
    return false;
  }
  idle->second = true;
  return true;
}

// Reports lines of the table after which the telephone always works.
bool CPlayer::AllOutcomesSeen() const {
  bool seen = true;
  for (const auto& [member, wasIdle] : m_idleAfter) {
    if (wasIdle) continue;
    PrintLine("FAILED the telephone works after each failure of " + member);
    seen = false;
  }
  return seen;
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
