// The user's actions on contacts, folders and Outlook's own windows.

#include <functional>

#include "workbench/commands/commands.h"
#include "workbench/commands/run.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

void AddStore(COutlook& outlook, const std::string& name) {
  outlook.Session().Mailbox().AddSecondaryStore(WideFromUtf8(name));
}

void AddFolder(COutlook& outlook, const std::string& path) {
  outlook.AddFolder(path);
}

void Select(COutlook& outlook, const std::string& contact) {
  outlook.Select({contact});
}

void CloseContact(COutlook& outlook, const std::string& contact) {
  outlook.CloseInspector(contact);
}

// The user's action on one contact or folder, or with a second one; then Outlook handles messages.
template <auto action>
void OnOne(CRun& run, const CCommandArguments& arguments) {
  std::invoke(action, run.stage.outlook, arguments.Text(0));
  run.stage.host.Pump();
}

template <auto action>
void OnTwo(CRun& run, const CCommandArguments& arguments) {
  std::invoke(action, run.stage.outlook, arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

void SwitchFolder(CRun& run, const CCommandArguments& arguments) {
  run.stage.figures.Time(&Figures::folderSwitch,
                         [&] { run.stage.outlook.SwitchFolder(arguments.Text(0)); });
  run.stage.host.Pump();
}

void ItemEvents(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.Session().DelayItemEvents(arguments.Choice(0, {"inside", "later"}) == 1);
}

void SinkRelease(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.Model().DelaySinkRelease(arguments.Choice(0, {"inside", "later"}) == 1);
}

void Objects(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.Session().GiveSeveralObjects(arguments.Choice(0, {"one", "several"}) == 1);
}

void MainWindow(CRun& run, const CCommandArguments& arguments) {
  const bool shown = arguments.Choice(0, {"hidden", "shown"}) == 1;
  CSession& session = run.stage.outlook.Session();
  const CModelPtr<CExplorer> explorer = session.ActiveExplorer();
  if (!explorer) throw CScenarioError("no main window is open");
  ShowWindow(session.Face().WindowOf(*explorer), shown ? SW_SHOW : SW_HIDE);
  run.stage.host.Pump();
}

void SetEntryIds(CRun& run, const CCommandArguments& arguments) {
  constexpr size_t kLong = 140;
  EntryIdStyle style;
  for (size_t i = 0; i < arguments.Count(); ++i) {
    const size_t choice = arguments.Choice(i, {"lower", "long", "changing"});
    if (choice == 0) style.lowerCase = true;
    if (choice == 1) style.digits = kLong;
    if (choice == 2) style.newOnMove = true;
  }
  run.stage.outlook.Session().Mailbox().SetEntryIdStyle(style);
}

// NAME [TYPE=NUMBER]... [in FOLDER], as a vCard with this property.
void Add(CRun& run, const CCommandArguments& arguments, const char* property) {
  const std::optional<std::string> folder = arguments.After("in");
  std::string card = std::string("BEGIN:VCARD\n") + property + "\nFN:" + arguments.Text(0) + "\n";
  for (const std::string& number :
       arguments.WordsFrom(1).first(arguments.Count() - (folder ? 3 : 1))) {
    const size_t equals = number.find('=');
    if (equals == std::string::npos) arguments.ThrowUsage();
    card += "TEL;TYPE=" + number.substr(0, equals) + ":" + number.substr(equals + 1) + "\n";
  }
  run.stage.outlook.AddCards(folder.value_or("Contacts"), card + "END:VCARD\n");
  run.stage.host.Pump();
}

void AddContact(CRun& run, const CCommandArguments& arguments) {
  Add(run, arguments, "KIND:individual");
}

void AddList(CRun& run, const CCommandArguments& arguments) {
  Add(run, arguments, "KIND:group");
}

void Change(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.ChangeContact(arguments.Text(0), arguments.Text(1), arguments.Text(2));
  run.stage.host.Pump();
}

void SwitchCalendar(CRun& run, const CCommandArguments& arguments) {
  run.stage.screen.ShowCalendarAsTable(arguments.Choice(0, {"days", "table"}) == 1);
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"add contact", 1, kAnyNumber, Block::None, AddContact},
    {"add list", 1, 3, Block::None, AddList},
    {"change contact", 3, 3, Block::None, Change},
    {"delete contact", 1, 1, Block::None, OnOne<&COutlook::DeleteContact>},
    {"move contact", 2, 2, Block::None, OnTwo<&COutlook::MoveContact>},
    {"add store", 1, 1, Block::None, OnOne<AddStore>},
    {"item events", 1, 1, Block::None, ItemEvents},
    {"sinks released", 1, 1, Block::None, SinkRelease},
    {"objects", 1, 1, Block::None, Objects},
    {"main window", 1, 1, Block::None, MainWindow},
    {"entry ids", 0, 3, Block::None, SetEntryIds},
    {"add folder", 1, 1, Block::None, OnOne<AddFolder>},
    {"delete folder", 1, 1, Block::None, OnOne<&COutlook::DeleteFolder>},
    {"move folder", 2, 2, Block::None, OnTwo<&COutlook::MoveFolder>},
    {"select", 1, 1, Block::None, OnOne<Select>},
    {"switch folder", 1, 1, Block::None, SwitchFolder},
    {"switch calendar", 1, 1, Block::None, SwitchCalendar},
    {"open contact", 1, 1, Block::None, OnOne<&COutlook::OpenInspector>},
    {"close contact", 1, 1, Block::None, OnOne<CloseContact>},
    {"next contact", 2, 2, Block::None, OnTwo<&COutlook::MoveInspector>},
};

}  // namespace

constinit const std::span<const Command> kContactCommands = kCommands;

}  // namespace quor::workbench
