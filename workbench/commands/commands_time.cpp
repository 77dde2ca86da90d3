// Waiting: always for a condition, never only for a number of milliseconds.

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr int kMostTicks = 10'000;
constexpr int kLongestWait = 60'000;  // milliseconds
constexpr unsigned kConditionLimit = 10'000;

void Ticks(CRun& run, const CCommandArguments& arguments) {
  run.WaitForTicks(arguments.Number(0, 1, kMostTicks));
}

void Poll(CRun& run, const CCommandArguments& arguments) {
  const int times = arguments.Count() == 0 ? 1 : arguments.Number(0, 1, kMostTicks);
  for (int i = 0; i < times; ++i)
    run.stage.host.Poll();
}

void Pump(CRun& run, const CCommandArguments&) {
  run.stage.host.Pump();
}

void Wait(CRun& run, const CCommandArguments& arguments) {
  run.stage.host.PumpUntil([] { return false; },
                           static_cast<unsigned>(arguments.Number(0, 1, kLongestWait)));
}

void WaitWindow(CRun& run, const CCommandArguments& arguments) {
  const std::string& title = arguments.Text(0);
  const bool shown = arguments.Choice(1, {"hidden", "shown"}) == 1;
  const auto reached = [&] {
    for (const WindowView& window : run.stage.screen.Windows()) {
      if (IsCalled(window, title) && window.visible) return shown;
    }
    return !shown;
  };
  if (!run.stage.host.PumpUntil(reached, kConditionLimit)) {
    throw CExpectationFailure(shown ? "it does not appear" : "it stays");
  }
}

void WaitLog(CRun& run, const CCommandArguments& arguments) {
  const auto reached = [&] {
    for (const std::string& line : run.NewLogLines()) {
      if (line == arguments.Text(0)) return true;
    }
    return false;
  };
  if (!run.stage.host.PumpUntil(reached, kConditionLimit)) {
    throw CExpectationFailure("the line does not come");
  }
  run.stage.host.Pump();
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"ticks", 1, 1, Block::None, Ticks},
    {"poll", 0, 1, Block::None, Poll},
    {"pump", 0, 0, Block::None, Pump},
    {"wait", 1, 1, Block::None, Wait},
    {"wait window", 2, 2, Block::None, WaitWindow},
    {"wait log", 1, 1, Block::None, WaitLog},
};

}  // namespace

constinit const std::span<const Command> kTimeCommands = kCommands;

}  // namespace quor::workbench
