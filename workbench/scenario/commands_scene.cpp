// Before the add-in is loaded: settings, files, contacts.

#include "workbench/scenario/commands.h"
#include "workbench/scenario/run.h"
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

void SettingsFile(CRun& run, const CCommandArguments& arguments) {
  run.stage.evidence.CopyIn(PathFrom(run, arguments.Text(0)), "Microsoft\\AddIns\\vex_cfg.xml");
  run.settings = CRun::Settings::None;
}

void SettingsBlock(CRun& run, const CCommandArguments& arguments) {
  if (arguments.Is(0, "none") && !arguments.HasBlock()) {
    run.settings = CRun::Settings::None;
  } else if (arguments.Count() == 0 && arguments.HasBlock()) {
    run.settings = CRun::Settings::Given;
    run.givenSettings = arguments.BlockText();
  } else {
    throw CScenarioError("usage: settings none, settings file PATH, or settings: with a block");
  }
}

void Setting(CRun& run, const CCommandArguments& arguments) {
  run.systemSettings[arguments.Text(0)] = arguments.Text(1);
}

void File(CRun& run, const CCommandArguments& arguments) {
  run.stage.evidence.WriteFile(arguments.Text(0), arguments.BlockText());
}

void Folder(CRun& run, const CCommandArguments& arguments) {
  run.stage.evidence.MakeFolder(arguments.Text(0));
}

void NoApplicationData(CRun& run, const CCommandArguments&) {
  run.stage.evidence.RemoveApplicationData();
  run.settings = CRun::Settings::None;
}

void Contacts(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.LoadContacts(PathFrom(run, arguments.Text(0)));
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"applies to", "VERSION...",
     "First line of a scenario for some Outlook versions only: version numbers, command-bar (below "
     "14) or ribbon (14 and up). For other versions the scenario is skipped, and this is printed.",
     1, kAnyNumber, Block::None, Applies},
    {"say", "TEXT",
     "Prints a text for the reader; --story prints only these texts and what is shown.", 1, 1,
     Block::None, Say},
    {kRepeatCommand, "N",
     "Plays the commands of the block N times; {round} in them and in their blocks is the number "
     "of the round, from 1.",
     1, 1, Block::Required, nullptr},
    {"settings file", "PATH", "Uses a copy of PATH as this run's settings file.", 1, 1, Block::None,
     SettingsFile},
    {"settings", "[none]",
     "Uses the block as this run's settings file, or none. Without this command there is a small "
     "file with the diagnostic log on and English as language.",
     0, 1, Block::Optional, SettingsBlock},
    {"setting", "NAME VALUE",
     "Sets one element of that small settings file, such as DelayBtnEvent.", 2, 2, Block::None,
     Setting},
    {"file", "PATH", "Writes the block to a file in the application-data folder.", 1, 1,
     Block::Required, File},
    {"folder", "PATH", "Creates a folder in the application-data folder.", 1, 1, Block::None,
     Folder},
    {"no application data", "",
     "Makes Windows report an application-data folder that does not exist.", 0, 0, Block::None,
     NoApplicationData},
    {"contacts", "FILE", "Fills the contacts folder from a vCard file.", 1, 1, Block::None,
     Contacts},
};

}  // namespace

std::span<const Command> SceneCommands() {
  return kCommands;
}

}  // namespace quor::workbench
