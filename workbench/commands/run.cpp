#include "workbench/commands/run.h"

#include <initializer_list>
#include <utility>

#include "workbench/commands/command.h"
#include "workbench/commands/rounds.h"
#include "workbench/host/process_use.h"
#include "workbench/scenario/log_lines.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kFirstRibbonVersion = 14;
// Milliseconds. A fault may have stopped the polling, so do not wait long.
constexpr unsigned kTickLimitUnderFaults = 200;
constexpr char kSettingsFile[] = "Microsoft\\AddIns\\vex_cfg.xml";

std::string DefaultSettings(const std::map<std::string, std::string>& system) {
  const auto elements = [&system](std::initializer_list<const char*> names) {
    std::string text;
    for (const std::string name : names) {
      const auto found = system.find(name);
      if (found == system.end()) continue;
      text.append("<").append(name).append(">").append(found->second);
      text.append("</").append(name).append(">");
    }
    return text;
  };
  return "<?xml version='1.0' "
         "encoding='utf-8'?>\n<Root><Histories/><ToolBars/><System><AliveCheck>" +
         elements({"ACheckInterval", "ConnectInterval", "DialClear", "ConnectWait", "DebugLog",
                   "DelayBtnEvent"}) +
         "</AliveCheck>" +
         elements({"LanguageNo", "CallerInfo", "PopUp", "LinePopUp1", "LinePopUp2", "CellPopUp1",
                   "CellPopUp2", "CellPopUp3", "CellPopUp4", "RecordCalls"}) +
         "</System><CallerLists/><SpeedDials/></Root>\n";
}

}  // namespace

void CRun::Step(const Statement& statement) {
  const FoundCommand found = FindCommand(statement);
  if (statement.beginsStep) Forget();
  transcript.Command(statement);
  found.command->run(*this, CCommandArguments(statement, found.words));
  if (!m_failedInside.empty()) {
    throw CExpectationFailure("inside the call: " + std::exchange(m_failedInside, {}));
  }
}

bool CRun::Play(const std::vector<Statement>& statements) {
  try {
    return ForEachStatement(statements, stage.outlook.Version(),
                            [this](const Statement& statement) { return PlayOne(statement); });
  } catch (const CScenarioError& error) {
    transcript.Failure(error.what());
    return false;
  }
}

bool CRun::PlayOne(const Statement& statement) {
  try {
    m_executor.Do([&] { Step(statement); });
    return true;
  } catch (const std::runtime_error& error) {
    transcript.Failure(AtStatement(statement, error.what()));
    return false;
  }
}

void CRun::PlayInside(const std::vector<Statement>& statements) {
  try {
    ForEachStatement(statements, stage.outlook.Version(), [this](const Statement& statement) {
      Step(statement);
      return true;
    });
  } catch (const std::runtime_error& error) {
    // The exception must not pass through the add-in's call.
    if (m_failedInside.empty()) m_failedInside = error.what();
  }
}

std::string CRun::FailureOf(const Statement& statement) {
  PlayInside({statement});
  return std::exchange(m_failedInside, {});
}

void CRun::PlayUnderFaults(const std::vector<Statement>& statements) {
  m_tickLimit = kTickLimitUnderFaults;
  ForEachStatement(statements, stage.outlook.Version(), [this](const Statement& statement) {
    if (statement.words.front() == "expect") return true;
    try {
      m_executor.Do([&] { Step(statement); });
    } catch (const std::runtime_error&) {
      // The fault made this step impossible.
    }
    return true;
  });
}

bool CRun::Finish() {
  try {
    m_executor.Do([this] {
      stage.host.NeighboursLeave();
      if (stage.host.IsLoaded()) {
        QuitOutlook();
      } else if (stage.host.IsInProcess()) {
        Unload();
      }
      CheckNothingHeld();
      if (!AreHeapsSound()) throw CExpectationFailure("a heap is damaged");
    });
    return true;
  } catch (const std::runtime_error& error) {
    transcript.Failure(std::string("at the end: ") + error.what());
    return false;
  }
}

void CRun::CheckNothingHeld() {
  if (const unsigned open = stage.base.FreedWhileOpen(); open != 0) {
    throw CExpectationFailure("SiUSBXp.dll was freed with " + std::to_string(open) +
                              " open: a thread of its own ran in freed code");
  }
  const std::vector<std::string> held = Held();
  if (held.empty()) return;
  std::string text = "the add-in still holds";
  for (const std::string& object : held)
    text += "\n  " + object;
  throw CExpectationFailure(text);
}

std::vector<std::string> CRun::WholeLog() {
  const std::optional<std::string> content = stage.evidence.ReadLog();
  if (!content) return {};
  LogLines lines = ReadLogLines(*content);
  if (!lines.firstError.empty()) throw CExpectationFailure("diagnostic log: " + lines.firstError);
  return std::move(lines.texts);
}

std::vector<std::string> CRun::NewLogLines() {
  std::vector<std::string> lines = WholeLog();
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(m_logSeen));
  return lines;
}

void CRun::Forget() {
  ForgetLog();
  ForgetWire();
  ForgetUsbCalls();
}

Bytes CRun::NewWire() {
  Bytes bytes;
  for (const Bytes& frame : stage.base.Written())
    bytes.insert(bytes.end(), frame.begin(), frame.end());
  return bytes;
}

void CRun::WriteSettings() {
  if (settings == Settings::None) return;
  if (settings == Settings::Given) {
    stage.data.Write(kSettingsFile, givenSettings);
    return;
  }
  std::map<std::string, std::string> system = {{"DebugLog", "1"}, {"LanguageNo", "0"}};
  for (const auto& [name, value] : systemSettings)
    system[name] = value;
  stage.data.Write(kSettingsFile, DefaultSettings(system));
}

void CRun::QuitOutlook() {
  if (!m_hasQuit) EndOutlook();
  Unload();
}

void CRun::EndOutlook() {
  CAddInHost& host = stage.host;
  if (host.IsConnected()) {
    const bool fast = stage.outlook.Version() >= kFirstRibbonVersion;
    CloseExplorer();
    m_hasQuit = true;
    host.Pump();
    if (!fast && host.IsLoaded()) host.BeginShutdown();
    RaiseQuit();
    host.Pump();
    // From version 14 on Outlook makes no further calls; the process ends and the add-in with it.
    if (!fast && host.IsLoaded()) host.Disconnect(0);
  }
}

void CRun::CloseExplorer() {
  stage.figures.Time(&Figures::shutdown, [this] { stage.outlook.CloseExplorer(); });
}

void CRun::RaiseQuit() {
  stage.figures.Time(&Figures::shutdown, [this] { stage.outlook.RaiseQuit(); });
}

std::vector<std::string> CRun::Held() {
  std::vector<std::string> held = stage.outlook.Held();
  for (const std::string& sink : stage.outlook.Sinks())
    held.push_back("sink on " + sink);
  const std::vector<std::string>& misuses = stage.outlook.Model().Misuses();
  held.insert(held.end(), misuses.begin(), misuses.end());
  return held;
}

void CRun::Unload() {
  stage.host.Unload();
  CheckNothingHeld();
}

void CRun::ReopenOutlook() {
  if (std::exchange(m_hasQuit, false)) stage.outlook.OpenExplorer();
}

void CRun::WaitForTicks(int ticks) {
  const unsigned goal = stage.base.Calls(UsbFunction::GetNumDevices) + static_cast<unsigned>(ticks);
  const auto reached = [this, goal] {
    return stage.base.Calls(UsbFunction::GetNumDevices) >= goal;
  };
  // A poll comes every 100 ms and may itself take 3 s, the read timeout.
  if (!stage.host.PumpUntil(reached, m_tickLimit)) {
    throw CExpectationFailure("the add-in does not poll the base");
  }
  stage.host.Pump();
}

}  // namespace quor::workbench
