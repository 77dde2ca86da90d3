#include "workbench/scenario/options.h"

#include <charconv>
#include <utility>

#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

const char kUsage[] =
    "workbench [OPTIONS] [SCENARIO]\n"
    "  Plays a scenario with the add-in that is registered on this machine; without one shows "
    "Outlook\n"
    "  and the telephone base to a person.\n"
    "\n"
    "  --outlook N       the Outlook version to be, 9 to 16; else 11 as 32-bit and 16 as 64-bit "
    "program\n"
    "  --sweep           plays the scenario again and again, each time with one more call of the "
    "object\n"
    "                    model failing, until none is left; nothing must crash, hang or stay held\n"
    "  --inside WHAT     what a sweep does inside each call instead of failing it: disconnect, "
    "release,\n"
    "                    quit, poll or unplug\n"
    "  --outcomes FILE   the calls whose failure may leave a sweep's session without telephone\n"
    "  --neighbours      other add-ins' windows and message hook are there all the time\n"
    "  --from N          where a sweep begins, to look at one call again\n"
    "  --replay LOG      feeds the frames received in a diagnostic log to the add-in and compares "
    "logs\n"
    "  --story           tells only what the scenario says and shows\n"
    "  --quiet           tells only failures\n"
    "  --calls           tells what the add-in calls of Outlook and what Outlook tells it\n"
    "  --addin PROGID    which add-in, if several are registered\n"
    "  --contacts FILE   vCard file with the contacts, without a scenario\n"
    "  --data FOLDER     application-data folder, kept; else a fresh one, removed afterwards\n"
    "  --pictures FOLDER where screenshots go\n"
    "  --unpainted       leaves Outlook's own windows blank: a long play takes a third of the "
    "time\n"
    "  --stuck SECONDS   how long one command may take, 60\n"
    "  --help            this text and every command of the scenario language\n"
    "  --help-markdown   the commands as the manual has them\n"
    "\n"
    "  Exit codes: 0 all is as expected, 1 it is not, 2 nothing was played, 3 a crash, 4 it got "
    "stuck,\n"
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
    const std::string text = Value(option);
    int value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || value < least || value > most) {
      throw CScenarioError(option + " takes a number from " + std::to_string(least) + " to " +
                           std::to_string(most));
    }
    return value;
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
    } else if (option == "--from") {
      m_options.sweepFrom = static_cast<unsigned>(Number(option, 1, 1'000'000));
    } else if (option == "--help") {
      m_options.task = Task::Help;
    } else if (option == "--help-markdown") {
      m_options.task = Task::HelpMarkdown;
    } else {
      throw CScenarioError("no option is called " + option + "; --help lists them");
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
