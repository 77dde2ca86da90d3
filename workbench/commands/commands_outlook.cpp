// Outlook's lifecycle and its calls on the add-in.

#include <climits>
#include <utility>

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/results.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kStartupMode = 1;
constexpr int kLastConnectMode = 3;
constexpr int kMostTicks = 100;
constexpr int kLastDisconnectMode = 3;
constexpr uint32_t kFailure = 0x80004005;  // E_FAIL
constexpr char kExplorerRibbon[] = "Microsoft.Outlook.Explorer";

void Create(CRun& run, const CCommandArguments&) {
  run.WriteSettings();
  run.lastResult = run.stage.host.Create();
}

void ConnectWithMode(CRun& run, int mode) {
  run.ReopenOutlook();
  if (!run.stage.host.IsLoaded()) {
    run.WriteSettings();
    run.lastResult = run.stage.host.Create();
    if (IsFailure(run.lastResult)) return;
  }
  run.lastResult = run.stage.host.Connect(mode);
}

void Connect(CRun& run, const CCommandArguments& arguments) {
  ConnectWithMode(run, arguments.Count() ? arguments.Number(0, 0, kLastConnectMode) : kStartupMode);
  run.stage.host.Pump();
}

void CheckResult(const CRun& run, uint32_t expected) {
  if (run.lastResult == expected) return;
  throw CExpectationFailure("the add-in returned " + ResultName(run.lastResult));
}

void Start(CRun& run, const CCommandArguments& arguments) {
  const std::optional<int> ticks = arguments.NumberAfter("ticks", 1, kMostTicks);
  const uint32_t expected = ResultFromName(arguments.After("gives").value_or("S_OK"));
  ConnectWithMode(run, kStartupMode);
  const uint32_t result = run.lastResult;
  // Outlook makes no further calls on an add-in that refused the connection.
  if (run.stage.host.IsConnected()) {
    std::optional<std::string> document;
    if (run.stage.outlook.Version() >= 14) run.stage.host.CustomUi(kExplorerRibbon, document);
    run.stage.host.StartupComplete();
  }
  run.stage.host.Pump();
  run.lastResult = result;
  CheckResult(run, expected);
  if (ticks) run.WaitForTicks(*ticks);
}

// Only one call on the add-in.
template <uint32_t (CAddInHost::*call)()>
void Call(CRun& run, const CCommandArguments&) {
  run.lastResult = (run.stage.host.*call)();
}

void Disconnect(CRun& run, const CCommandArguments& arguments) {
  run.lastResult = run.stage.host.Disconnect(arguments.Number(0, 0, kLastDisconnectMode));
  run.stage.host.Pump();
}

void CustomUi(CRun& run, const CCommandArguments& arguments) {
  std::optional<std::string> document;
  run.lastResult = run.stage.host.CustomUi(arguments.Text(0), document);
  if (arguments.Count() == 1) return;
  if (!arguments.Is(1, "gives")) arguments.ThrowUsage();
  const bool wanted = arguments.Choice(2, {"nothing", "document"}) == 1;
  if (document.has_value() != wanted) {
    throw CExpectationFailure(document ? "it gives a document of " +
                                             std::to_string(document->size()) + " characters"
                                       : std::string("it gives nothing"));
  }
}

RibbonCall RibbonCallFromWords(const CCommandArguments& arguments) {
  RibbonCall call = {arguments.Text(0), arguments.Text(1), {}, {}, RibbonCall::Form::Value};
  for (size_t i = 2; i < arguments.Count() && !arguments.Is(i, "gives"); ++i) {
    if (arguments.Is(i, "index")) {
      call.index = arguments.Number(++i, INT_MIN, INT_MAX);
    } else if (arguments.Is(i, "text")) {
      call.text = arguments.Text(++i);
    } else if (arguments.Is(i, "by-reference")) {
      call.form = RibbonCall::Form::Reference;
    } else if (arguments.Is(i, "by-variant")) {
      call.form = RibbonCall::Form::VariantReference;
    } else {
      throw CScenarioError("\"" + arguments.Text(i) + "\" is no part of a callback");
    }
  }
  return call;
}

void Callback(CRun& run, const CCommandArguments& arguments) {
  std::string answer;
  run.lastResult = run.stage.host.CallRibbon(RibbonCallFromWords(arguments), answer);
  run.stage.host.Pump();
  const size_t count = arguments.Count();
  if (count < 4 || !arguments.Is(count - 2, "gives")) return;
  if (answer != arguments.Text(count - 1)) {
    throw CExpectationFailure("it gives \"" + answer + "\"");
  }
}

void Quit(CRun& run, const CCommandArguments&) {
  run.QuitOutlook();
}

void QuitEvent(CRun& run, const CCommandArguments&) {
  run.RaiseQuit();
  run.stage.host.Pump();
}

void EndProcess(CRun& run, const CCommandArguments& arguments) {
  const bool uninitialized = arguments.Count() == 1 && arguments.Choice(0, {"uninitialized"}) == 0;
  run.EndOutlook();
  run.stage.host.EndProcess(uninitialized);
}

void CloseExplorer(CRun& run, const CCommandArguments& arguments) {
  if (arguments.Count() == 0) {
    run.CloseExplorer();
  } else if (arguments.Choice(0, {"first"}) == 0) {
    run.stage.outlook.CloseFirstExplorer();
  }
  run.stage.host.Pump();
}

void NewExplorer(CRun& run, const CCommandArguments&) {
  run.stage.outlook.OpenExplorer();
  run.stage.host.Pump();
}

void Unload(CRun& run, const CCommandArguments&) {
  run.Unload();
}

void Release(CRun& run, const CCommandArguments&) {
  run.stage.host.ReleaseObject();
}

void ExpectResult(CRun& run, const CCommandArguments& arguments) {
  CheckResult(run, ResultFromName(arguments.Text(0)));
}

FailingCalls FailingCallsFromWords(const CCommandArguments& arguments, size_t from,
                                   uint32_t status) {
  FailingCalls fault;
  fault.status = status;
  for (size_t i = from; i < arguments.Count(); ++i) {
    if (arguments.Is(i, "call")) {
      fault = ParseCalls(arguments.Text(++i), status);
    } else if (arguments.Is(i, "status")) {
      fault.status = ResultFromName(arguments.Text(++i));
    } else {
      throw CScenarioError("\"" + arguments.Text(i) + "\" is neither call nor status");
    }
  }
  return fault;
}

void SetPace(CRun& run, const CCommandArguments& arguments) {
  constexpr int kSlowest = 1'000'000;
  run.stage.outlook.Model().SetPace(static_cast<unsigned>(arguments.Number(0, 0, kSlowest)));
}

std::string MemberFromName(const std::string& name) {
  return name == "any" ? "*" : name;
}

void FailMember(CRun& run, const CCommandArguments& arguments) {
  const FailingCalls calls = FailingCallsFromWords(arguments, 1, kFailure);
  Fault fault;
  fault.member = MemberFromName(arguments.Text(0));
  fault.first = calls.firstCall;
  fault.last = calls.lastCall;
  fault.code = static_cast<HRESULT>(calls.status);
  run.stage.outlook.Model().AddFault(fault);
}

void HealMembers(CRun& run, const CCommandArguments&) {
  run.stage.outlook.Model().WithdrawAll();
}

void FailSystem(CRun& run, const CCommandArguments& arguments) {
  constexpr uint32_t kNotEnoughQuota = 1816;
  run.stage.host.FailSystemFunction(arguments.Text(0),
                                    FailingCallsFromWords(arguments, 1, kNotEnoughQuota));
}

void MoveIn(CRun& run, const CCommandArguments& arguments) {
  constexpr Neighbour kNeighbours[] = {Neighbour::NeverValidates, Neighbour::InvalidatesAgain,
                                       Neighbour::MessageHook, Neighbour::ClosesWindows,
                                       Neighbour::ModalLoop};
  if (arguments.Is(0, "leaves")) return run.stage.host.NeighboursLeave();
  run.stage.host.MoveIn(
      kNeighbours[arguments.Choice(0, {"unpainted", "repainting", "hook", "closing", "modal"})]);
}

void During(CRun& run, const CCommandArguments& arguments) {
  constexpr int kMostCalls = 1'000'000;
  const auto nth = static_cast<uint64_t>(arguments.Number(1, 1, kMostCalls));
  // Keep the block: its commands run inside a later command.
  const std::vector<Statement> statements = arguments.Commands(2, run.stage.outlook.Version());
  Hook hook;
  hook.member = MemberFromName(arguments.Text(0));
  hook.nth = nth;
  hook.action = [&run, statements] { run.PlayInside(statements); };
  run.stage.outlook.Model().AddHook(std::move(hook));
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"start", 0, 4, Block::None, Start},
    {"create", 0, 0, Block::None, Create},
    {"connect", 0, 1, Block::None, Connect},
    {"add-ins update", 0, 0, Block::None, Call<&CAddInHost::AddInsUpdate>},
    {"custom ui", 1, 3, Block::None, CustomUi},
    {"callback", 2, 9, Block::None, Callback},
    {"new explorer", 0, 0, Block::None, NewExplorer},
    {"close explorer", 0, 1, Block::None, CloseExplorer},
    {"quit event", 0, 0, Block::None, QuitEvent},
    {"begin shutdown", 0, 0, Block::None, Call<&CAddInHost::BeginShutdown>},
    {"disconnect", 1, 1, Block::None, Disconnect},
    {"release", 0, 0, Block::None, Release},
    {"unload", 0, 0, Block::None, Unload},
    {"quit", 0, 0, Block::None, Quit},
    {"end process", 0, 1, Block::None, EndProcess},
    {"expect result", 1, 1, Block::None, ExpectResult},
    {"pace", 1, 1, Block::None, SetPace},
    {"fail member", 1, 5, Block::None, FailMember},
    {"heal members", 0, 0, Block::None, HealMembers},
    {"during", 2, kAnyNumber, Block::Optional, During},
    {"neighbour", 1, 1, Block::None, MoveIn},
    {"fail system", 1, 5, Block::None, FailSystem},
};

}  // namespace

constinit const std::span<const Command> kOutlookCommands = kCommands;

}  // namespace quor::workbench
