#include "workbench/scenario/options.h"

#include <algorithm>
#include <iterator>

#include "workbench/scenario/numbers.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

const char kUsage[] =
    "workbench [OPTIONS] [SCENARIO]\n"
    "  Plays a scenario with the registered add-in; without a scenario shows Outlook and the\n"
    "  telephone base for interactive use.\n"
    "\n"
    "  --outlook N       Outlook version, 9 to 16; default 11 in 32-bit and 16 in 64-bit builds\n"
    "  --sweep           plays the scenario once per object-model call, with this call failing;\n"
    "                    nothing may crash, hang or stay held\n"
    "  --inside WHAT     what a sweep does inside each call instead: disconnect, release, quit,\n"
    "                    poll or unplug\n"
    "  --outcomes FILE   calls whose failure may disable the telephone in a sweep\n"
    "  --neighbours      adds other add-ins' windows and message hook\n"
    "  --from N          first call of a sweep\n"
    "  --every N         plays only each Nth call of a long sweep\n"
    "  --replay LOG      replays the frames received in a diagnostic log and compares the logs\n"
    "  --story           prints only what the scenario says and shows\n"
    "  --quiet           prints only failures\n"
    "  --calls           prints the add-in's calls of Outlook and the events that it receives\n"
    "  --addin PROGID    selects the add-in if several are registered\n"
    "  --contacts FILE   vCard file with the contacts, without a scenario\n"
    "  --register-running\n"
    "                    lets other programs find this Outlook by GetActiveObject\n"
    "  --data FOLDER     application-data folder, kept; default: a temporary one\n"
    "  --pictures FOLDER folder for screenshots\n"
    "  --unpainted       leaves Outlook's own windows blank; long runs take a third of the time\n"
    "  --stuck SECONDS   time limit of one command, default 60\n"
    "  --help            prints this text and every command of the scenario language\n"
    "\n"
    "  Exit codes: 0 success, 1 failure, 2 nothing was played, 3 crash, 4 hang,\n"
    "  77 the scenario is for other versions.\n";

namespace {

using Task = Options::Task;
using Telling = Options::Telling;

struct Option {
  std::string_view name;
  bool takesValue;
  void (*set)(Options& options, const std::string& value);
};

template <auto member, auto value>
void Set(Options& options, const std::string&) {
  options.*member = value;
}

template <auto member>
void SetText(Options& options, const std::string& value) {
  options.*member = value;
}

template <auto member, int least, int most>
void SetNumber(Options& options, const std::string& value) {
  const auto number = ParseInBase<int>(value, 10);
  if (!number || *number < least || *number > most) {
    throw CScenarioError("\"" + value + "\" is not a number from " + std::to_string(least) +
                         " to " + std::to_string(most));
  }
  options.*member = *number;
}

void SetVersion(Options& options, const std::string& value) {
  SetNumber<&Options::outlookVersion, 9, 16>(options, value);
  if (options.outlookVersion == 13) throw CScenarioError("there is no Outlook 13");
}

void SetInside(Options& options, const std::string& value) {
  constexpr std::string_view kWords[] = {"disconnect", "release", "quit", "poll", "unplug"};
  const auto* const found = std::ranges::find(kWords, value);
  if (found == std::end(kWords)) {
    throw CScenarioError("--inside takes disconnect, release, quit, poll or unplug");
  }
  // Fail, the first, is the default.
  options.inside = static_cast<Options::Inside>(1 + (found - kWords));
}

void SetFile(Options& options, const std::string& file) {
  if (!options.file.empty()) throw CScenarioError("one scenario at a time, not also " + file);
  options.file = file;
  if (options.task == Task::Interactive) options.task = Task::Scenario;
}

void SetReplay(Options& options, const std::string& log) {
  options.task = Task::Replay;
  SetFile(options, log);
}

constexpr int kMostCalls = 1'000'000;

constexpr Option kOptions[] = {
    {"--outlook", true, SetVersion},
    {"--sweep", false, Set<&Options::task, Task::Sweep>},
    {"--inside", true, SetInside},
    {"--outcomes", true, SetText<&Options::outcomes>},
    {"--neighbours", false, Set<&Options::neighbours, true>},
    {"--from", true, SetNumber<&Options::sweepFrom, 1, kMostCalls>},
    {"--every", true, SetNumber<&Options::sweepStep, 1, kMostCalls>},
    {"--replay", true, SetReplay},
    {"--story", false, Set<&Options::telling, Telling::Story>},
    {"--quiet", false, Set<&Options::telling, Telling::FailuresOnly>},
    {"--calls", false, Set<&Options::calls, true>},
    {"--addin", true, SetText<&Options::addIn>},
    {"--contacts", true, SetText<&Options::contactsFile>},
    {"--register-running", false, Set<&Options::registerRunning, true>},
    {"--data", true, SetText<&Options::dataFolder>},
    {"--pictures", true, SetText<&Options::pictureFolder>},
    {"--unpainted", false, Set<&Options::painted, false>},
    {"--stuck", true, SetNumber<&Options::stuckAfter, 1, 3600>},
    {"--help", false, Set<&Options::task, Task::Help>},
};

const Option& FindOption(const std::string& word) {
  const auto* const found = std::ranges::find(kOptions, word, &Option::name);
  if (found == std::end(kOptions)) {
    throw CScenarioError("unknown option " + word + "; --help lists them");
  }
  return *found;
}

}  // namespace

Options ParseOptions(std::span<const std::string> arguments) {
  Options options;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string& word = arguments[i];
    if (!word.starts_with("--")) {
      SetFile(options, word);
      continue;
    }
    const Option& option = FindOption(word);
    if (option.takesValue && ++i == arguments.size()) throw CScenarioError(word + " needs a value");
    option.set(options, arguments[i]);
  }
  if (options.task == Task::Sweep && options.file.empty()) {
    throw CScenarioError("--sweep needs a scenario");
  }
  return options;
}

}  // namespace quor::workbench
