// The workbench: runs the registered add-in in a stand-in Outlook with a simulated base.

// clang-format off
#include <windows.h>
#include <fcntl.h>
#include <io.h>
#include <ole2.h>
#include <shellapi.h>
// clang-format on

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/commands/command.h"
#include "workbench/commands/player.h"
#include "workbench/commands/run.h"
#include "workbench/host/console.h"
#include "workbench/host/crash_report.h"
#include "workbench/host/dialog_ids.h"
#include "workbench/host/thread_executor.h"
#include "workbench/host/workbench.h"

namespace quor::workbench {
namespace {

std::vector<std::string> CommandLine() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i)
    arguments.push_back(Utf8FromWide(words[i]));
  LocalFree(words);
  return arguments;
}

int Play(const Options& options) {
  CMessageLoop loop;
  CThreadExecutor executor(loop, static_cast<DWORD>(options.stuckAfter) * 1000, ReportStuck);
  int code = kNotPlayed;
  executor.Serve([&] {
    try {
      CPlayer player(options, loop, executor);
      code = player.Play();
    } catch (const std::exception& error) {
      PrintLine(std::string("workbench: ") + error.what());
    }
  });
  return code;
}

// Interactive steps come one at a time, already on Outlook's thread.
class CHere final : public IExecutor {
 public:
  void Do(const std::function<void()>& action) override { action(); }
};

constexpr char kLiveStart[] =
    "mobiles \"Anna's mobile\" \"Work mobile\"\n"
    "plug\n"
    "start\n";

// The address book in the program's resources, as vCard text.
std::string OwnContacts() {
  const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(IDR_CONTACTS), RT_RCDATA);
  if (found == nullptr) return {};
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, found))),
          SizeofResource(nullptr, found)};
}

// Runs Outlook and the base interactively, until the last main window is closed.
int Live(const Options& options) {
  constexpr unsigned kFrame = 100;  // milliseconds
  CMessageLoop loop;
  CWorkbench workbench(options, loop);
  if (options.contactsFile.empty()) {
    workbench.Outlook().AddCards("Contacts", OwnContacts());
  } else {
    workbench.Outlook().LoadCards(ReadNamedFile(options.contactsFile));
  }
  CConsole console(options.telling);
  CHere here;
  CRun run(workbench.Stages(), console, here);
  // Settings from an earlier session with the same data folder stay.
  const bool hasSettings =
      workbench.Stages().data.Read("Microsoft\\AddIns\\vex_cfg.xml").has_value();
  if (hasSettings) run.settings = CRun::Settings::None;
  if (!run.Play(ParseScript(kLiveStart, options.outlookVersion))) return kNotPlayed;
  const auto isClosed = [&] { return !workbench.Outlook().Session().ActiveExplorer(); };
  while (!loop.RunUntil(isClosed, kFrame))
    workbench.Face().DrawStale();
  return run.Finish() ? kGood : kFailed;
}

int Main() {
  _setmode(_fileno(stdout), _O_BINARY);
  try {
    Options options = ParseOptions(CommandLine());
    switch (options.task) {
      case Options::Task::Help:
        PrintLine(std::string(kUsage) + "\n" + kCommandHelp);
        return kGood;
      case Options::Task::Interactive:
        if (options.outlookVersion == 0) options.outlookVersion = kUsualVersion;
        return Live(options);
      default:
        return Play(options);
    }
  } catch (const std::exception& error) {
    PrintLine(std::string("workbench: ") + error.what());
    return kNotPlayed;
  }
}

}  // namespace
}  // namespace quor::workbench

int main() {
  using namespace quor::workbench;
  ReportCrashes();
  if (FAILED(OleInitialize(nullptr))) return kNotPlayed;
  const int code = Main();
  OleUninitialize();
  return code;
}
