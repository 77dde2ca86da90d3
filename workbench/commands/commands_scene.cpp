// Before the add-in is loaded: settings, files, contacts.

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

// A path is relative to the scenario's folder unless it is absolute.
std::string PathFrom(const CRun& run, const std::string& path) {
  const bool absolute =
      path.starts_with('/') || path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
  return absolute ? path : run.scenarioFolder + path;
}

void Applies(CRun&, const CCommandArguments&) {
  // Read before the run: a scenario for other versions is skipped.
}

void Say(CRun& run, const CCommandArguments& arguments) {
  run.transcript.Say(arguments.Text(0));
}

void SettingsBlock(CRun& run, const CCommandArguments& arguments) {
  if (arguments.Is(0, "none") && !arguments.HasBlock()) {
    run.settings = CRun::Settings::None;
  } else if (arguments.Count() == 0 && arguments.HasBlock()) {
    run.settings = CRun::Settings::Given;
    run.givenSettings = arguments.BlockText();
  } else {
    arguments.ThrowUsage();
  }
}

void Setting(CRun& run, const CCommandArguments& arguments) {
  for (size_t i = 0; i < arguments.Count(); i += 2)
    run.systemSettings[arguments.Text(i)] = arguments.Text(i + 1);
}

void File(CRun& run, const CCommandArguments& arguments) {
  run.stage.data.Write(arguments.Text(0), arguments.BlockText());
}

void NoApplicationData(CRun& run, const CCommandArguments&) {
  run.stage.data.PointNowhere();
  run.settings = CRun::Settings::None;
}

void Contacts(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.LoadCards(ReadNamedFile(PathFrom(run, arguments.Text(0))));
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"applies to", 1, kAnyNumber, Block::None, Applies},
    {"say", 1, 1, Block::None, Say},
    {kRepeatCommand, 1, 1, Block::Required, nullptr},
    {"settings", 0, 1, Block::Optional, SettingsBlock},
    {"setting", 2, kAnyNumber, Block::None, Setting},
    {"file", 1, 1, Block::Required, File},
    {"no application data", 0, 0, Block::None, NoApplicationData},
    {"contacts", 1, 1, Block::None, Contacts},
};

}  // namespace

constinit const std::span<const Command> kSceneCommands = kCommands;

}  // namespace quor::workbench
