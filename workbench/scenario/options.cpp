#include "workbench/scenario/options.h"

#include <utility>

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
    "  --help-markdown   prints the commands in the format of docs/workbench.md\n"
    "\n"
    "  Exit codes: 0 success, 1 failure, 2 nothing was played, 3 crash, 4 hang,\n"
    "  77 the scenario is for other versions.\n";

namespace {

class COptionReader {
 public:
  explicit COptionReader(std::span<const std::string> arguments) : m_left(arguments) {}

  Options Read() {
    while (!m_left.empty()) {
      const std::string word = Take();
      if (word.starts_with("--")) {
        ReadOption(word);
      } else {
        SetFile(word);
      }
    }
    return m_options;
  }

 private:
  std::string Take() {
    const std::string word = m_left.front();
    m_left = m_left.subspan(1);
    return word;
  }

  std::string Value(const std::string& option) {
    if (m_left.empty()) throw CScenarioError(option + " needs a value");
    return Take();
  }

  int Number(const std::string& option, int least, int most) {
    const auto value = ParseInBase<int>(Value(option), 10);
    if (!value || *value < least || *value > most) {
      throw CScenarioError(option + " takes a number from " + std::to_string(least) + " to " +
                           std::to_string(most));
    }
    return *value;
  }

  static Options::Inside Inside(const std::string& word) {
    using enum Options::Inside;
    constexpr std::pair<const char*, Options::Inside> kWords[] = {{"disconnect", Disconnect},
                                                                  {"release", Release},
                                                                  {"quit", Quit},
                                                                  {"poll", Poll},
                                                                  {"unplug", Unplug}};
    for (const auto& [name, inside] : kWords) {
      if (word == name) return inside;
    }
    throw CScenarioError("--inside takes disconnect, release, quit, poll or unplug");
  }

  void SetFile(const std::string& file) {
    if (!m_options.file.empty()) throw CScenarioError("one scenario at a time, not also " + file);
    m_options.file = file;
    if (m_options.task == Options::Task::Interactive) m_options.task = Options::Task::Scenario;
  }

  void ReadOption(const std::string& option) {
    using Task = Options::Task;
    if (option == "--outlook") {
      m_options.outlookVersion = Number(option, 9, 16);
      if (m_options.outlookVersion == 13) throw CScenarioError("there is no Outlook 13");
    } else if (option == "--sweep") {
      m_options.task = Task::Sweep;
    } else if (option == "--replay") {
      m_options.task = Task::Replay;
      SetFile(Value(option));
    } else if (option == "--story") {
      m_options.telling = Options::Telling::Story;
    } else if (option == "--quiet") {
      m_options.telling = Options::Telling::FailuresOnly;
    } else if (option == "--calls") {
      m_options.calls = true;
    } else if (option == "--addin") {
      m_options.addIn = Value(option);
    } else if (option == "--contacts") {
      m_options.contactsFile = Value(option);
    } else if (option == "--data") {
      m_options.dataFolder = Value(option);
    } else if (option == "--pictures") {
      m_options.pictureFolder = Value(option);
    } else if (option == "--unpainted") {
      m_options.painted = false;
    } else if (option == "--stuck") {
      m_options.stuckAfter = static_cast<unsigned>(Number(option, 1, 3600));
    } else if (option == "--inside") {
      m_options.inside = Inside(Value(option));
    } else if (option == "--outcomes") {
      m_options.outcomes = Value(option);
    } else if (option == "--neighbours") {
      m_options.neighbours = true;
    } else if (option == "--register-running") {
      m_options.registerRunning = true;
    } else if (option == "--from") {
      m_options.sweepFrom = static_cast<unsigned>(Number(option, 1, 1'000'000));
    } else if (option == "--every") {
      m_options.sweepStep = static_cast<unsigned>(Number(option, 1, 1'000'000));
    } else if (option == "--help") {
      m_options.task = Task::Help;
    } else if (option == "--help-markdown") {
      m_options.task = Task::HelpMarkdown;
    } else {
      throw CScenarioError("unknown option " + option + "; --help lists them");
    }
  }

  std::span<const std::string> m_left;
  Options m_options;
};

}  // namespace

Options ParseOptions(std::span<const std::string> arguments) {
  Options options = COptionReader(arguments).Read();
  if (options.task == Options::Task::Sweep && options.file.empty()) {
    throw CScenarioError("--sweep needs a scenario");
  }
  return options;
}

}  // namespace quor::workbench
