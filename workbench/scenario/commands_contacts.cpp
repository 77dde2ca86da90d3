// The user's actions on contacts, folders and Outlook's own windows.

#include "workbench/scenario/commands.h"
#include "workbench/scenario/results.h"
#include "workbench/scenario/run.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

void AddStore(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.AddStore(arguments.Text(0));
}

void RefuseStore(CRun& run, const CCommandArguments& arguments) {
  using Refusal = IOutlookStage::Refusal;
  constexpr uint32_t kLogonFailed = 0x80040111;
  const std::string& what = arguments.Text(1);
  Refusal refusal = Refusal::None;
  if (what == "Item") refusal = Refusal::Item;
  if (what == "EntryID") refusal = Refusal::EntryId;
  if (what == "Name") refusal = Refusal::Name;
  if (refusal == Refusal::None) throw CScenarioError("a store refuses Item, EntryID or Name");
  const std::optional<std::string> status = arguments.After("status");
  run.stage.outlook.RefuseStore(arguments.Text(0), refusal,
                                status ? ResultFromName(*status) : kLogonFailed);
}

bool OnOrOff(const CCommandArguments& arguments, const char* on, const char* off) {
  if (!arguments.Is(0, on) && !arguments.Is(0, off)) {
    throw CScenarioError(std::string("either ") + on + " or " + off);
  }
  return arguments.Is(0, on);
}

void ItemEvents(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.DelayItemEvents(OnOrOff(arguments, "later", "inside"));
}

void SinkRelease(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.DelaySinkRelease(OnOrOff(arguments, "later", "inside"));
}

void Objects(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.GiveSeveralObjects(OnOrOff(arguments, "several", "one"));
}

void MainWindow(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.ShowMainWindow(OnOrOff(arguments, "shown", "hidden"));
  run.stage.host.Pump();
}

void SetEntryIds(CRun& run, const CCommandArguments& arguments) {
  EntryIds style;
  for (size_t i = 0; i < arguments.Count(); ++i) {
    const std::string& word = arguments.Text(i);
    if (word != "lower" && word != "long" && word != "changing") {
      throw CScenarioError("entry ids are lower, long or changing, not " + word);
    }
    style.isLower |= word == "lower";
    style.isLong |= word == "long";
    style.isChanging |= word == "changing";
  }
  run.stage.outlook.SetEntryIds(style);
}

void Add(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.AddContact(arguments.Count() ? arguments.Text(0) : std::string(),
                               arguments.BlockText());
  run.stage.host.Pump();
}

void Change(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.ChangeContact(arguments.Text(0), arguments.Text(1), arguments.Text(2));
  run.stage.host.Pump();
}

void Delete(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.DeleteContact(arguments.Text(0));
  run.stage.host.Pump();
}

void Move(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.MoveContact(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

void AddFolder(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.AddFolder(arguments.Text(0));
  run.stage.host.Pump();
}

void DeleteFolder(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.DeleteFolder(arguments.Text(0));
  run.stage.host.Pump();
}

void MoveFolder(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.MoveFolder(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

void Select(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.Select(arguments.Text(0));
  run.stage.host.Pump();
}

void SwitchFolder(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.SwitchFolder(arguments.Text(0));
  run.stage.host.Pump();
}

void SwitchCalendar(CRun& run, const CCommandArguments& arguments) {
  if (!arguments.Is(0, "table") && !arguments.Is(0, "days")) {
    throw CScenarioError("usage: switch calendar table|days");
  }
  run.stage.screen.ShowCalendarAsTable(arguments.Is(0, "table"));
}

void OpenInspector(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.OpenInspector(arguments.Text(0));
  run.stage.host.Pump();
}

void CloseInspector(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.CloseInspector(arguments.Text(0));
  run.stage.host.Pump();
}

void ActivateInspector(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.ActivateInspector(arguments.Text(0));
  run.stage.host.Pump();
}

void MoveInspector(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.MoveInspector(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

using Block = Command::Block;

constexpr Command kCommands[] = {
    {"add contact", "[FOLDER]",
     "Saves new contacts in the contacts folder or the given one; the block is vCard text.", 0, 1,
     Block::Required, Add},
    {"change contact", "NAME PROPERTY VALUE",
     "Sets one property, such as HomeTelephoneNumber, of the contact with this File As, and saves "
     "it.",
     3, 3, Block::None, Change},
    {"delete contact", "NAME", "Moves the contact to Deleted Items.", 1, 1, Block::None, Delete},
    {"move contact", "NAME FOLDER", "Moves the contact to another folder.", 2, 2, Block::None,
     Move},
    {"add store", "NAME",
     "Adds a message store with its own Contacts and Deleted Items folders: NAME/Contacts. Before "
     "Outlook starts.",
     1, 1, Block::None, AddStore},
    {"refuse store", "NAME Item|EntryID|Name [status HRESULT]",
     "The store cannot be opened: that member of its folder, or its item in the collection of "
     "stores, fails from now on, by default with 0x80040111.",
     2, 4, Block::None, RefuseStore},
    {"item events", "later|inside",
     "Whether ItemAdd and ItemChange are raised when messages are pumped later, or inside the "
     "change.",
     1, 1, Block::None, ItemEvents},
    {"sinks released", "later|inside",
     "Whether a source releases a sink when messages are pumped later, or inside Unadvise.", 1, 1,
     Block::None, SinkRelease},
    {"objects", "several|one", "Whether each query for a folder or item returns another object.", 1,
     1, Block::None, Objects},
    {"main window", "shown|hidden", "Whether the main window is visible.", 1, 1, Block::None,
     MainWindow},
    {"entry ids", "[lower] [long] [changing]",
     "Entry IDs assigned from now on have lower-case digits, have 140 digits, or change when an "
     "item is moved, as in some stores.",
     0, 3, Block::None, SetEntryIds},
    {"add folder", "PATH", "Creates a contacts folder, by path from the top: Contacts/Customers.",
     1, 1, Block::None, AddFolder},
    {"delete folder", "PATH", "Moves a folder to Deleted Items.", 1, 1, Block::None, DeleteFolder},
    {"move folder", "PATH PARENT", "Moves a folder into another.", 2, 2, Block::None, MoveFolder},
    {"select", "NAME", "Selects the contact in the main window.", 1, 1, Block::None, Select},
    {"switch folder", "PATH",
     "Shows another folder in the main window: Inbox, Calendar, Contacts, Contacts/Customers.", 1,
     1, Block::None, SwitchFolder},
    {"switch calendar", "table|days",
     "Sets the view of calendar folders in the main window; the ribbon has a tab for each.", 1, 1,
     Block::None, SwitchCalendar},
    {"open contact", "NAME", "Opens the contact's own window.", 1, 1, Block::None, OpenInspector},
    {"close contact", "NAME", "Closes it.", 1, 1, Block::None, CloseInspector},
    {"activate contact", "NAME", "Brings the contact's window to the front.", 1, 1, Block::None,
     ActivateInspector},
    {"next contact", "NAME NEXT",
     "The window of one contact moves to another, as with its Next button: closes the first item, "
     "opens the second, raises the window's Activate.",
     2, 2, Block::None, MoveInspector},
};

}  // namespace

std::span<const Command> ContactCommands() {
  return kCommands;
}

}  // namespace quor::workbench
