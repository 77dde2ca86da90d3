// The user's actions on contacts, folders and Outlook's own windows.

#include "workbench/scenario/commands.h"
#include "workbench/scenario/results.h"
#include "workbench/scenario/run.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

// The user's action on one contact or folder, or with a second one; then Outlook handles messages.
template <auto action>
void OnOne(CRun& run, const CCommandArguments& arguments) {
  (run.stage.outlook.*action)(arguments.Text(0));
  run.stage.host.Pump();
}

template <auto action>
void OnTwo(CRun& run, const CCommandArguments& arguments) {
  (run.stage.outlook.*action)(arguments.Text(0), arguments.Text(1));
  run.stage.host.Pump();
}

void RefuseStore(CRun& run, const CCommandArguments& arguments) {
  using Refusal = IOutlookStage::Refusal;
  constexpr uint32_t kLogonFailed = 0x80040111;
  constexpr Refusal kRefusals[] = {Refusal::Item, Refusal::EntryId, Refusal::Name};
  const Refusal refusal = kRefusals[arguments.Choice(1, {"Item", "EntryID", "Name"})];
  const std::optional<std::string> status = arguments.After("status");
  run.stage.outlook.RefuseStore(arguments.Text(0), refusal,
                                status ? ResultFromName(*status) : kLogonFailed);
}

void ItemEvents(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.DelayItemEvents(arguments.Choice(0, {"inside", "later"}) == 1);
}

void SinkRelease(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.DelaySinkRelease(arguments.Choice(0, {"inside", "later"}) == 1);
}

void Objects(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.GiveSeveralObjects(arguments.Choice(0, {"one", "several"}) == 1);
}

void MainWindow(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.ShowMainWindow(arguments.Choice(0, {"hidden", "shown"}) == 1);
  run.stage.host.Pump();
}

void SetEntryIds(CRun& run, const CCommandArguments& arguments) {
  constexpr bool EntryIds::*kParts[] = {&EntryIds::isLower, &EntryIds::isLong,
                                        &EntryIds::isChanging};
  EntryIds style;
  for (size_t i = 0; i < arguments.Count(); ++i)
    style.*kParts[arguments.Choice(i, {"lower", "long", "changing"})] = true;
  run.stage.outlook.SetEntryIds(style);
}

void Add(CRun& run, const CCommandArguments& arguments) {
  run.stage.outlook.AddContact(arguments.Count() ? arguments.Text(0) : "Contacts",
                               arguments.BlockText());
  run.stage.host.Pump();
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
    {"add contact", 0, 1, Block::Required, Add},
    {"change contact", 3, 3, Block::None, Change},
    {"delete contact", 1, 1, Block::None, OnOne<&IOutlookStage::DeleteContact>},
    {"move contact", 2, 2, Block::None, OnTwo<&IOutlookStage::MoveContact>},
    {"add store", 1, 1, Block::None, OnOne<&IOutlookStage::AddStore>},
    {"refuse store", 2, 4, Block::None, RefuseStore},
    {"item events", 1, 1, Block::None, ItemEvents},
    {"sinks released", 1, 1, Block::None, SinkRelease},
    {"objects", 1, 1, Block::None, Objects},
    {"main window", 1, 1, Block::None, MainWindow},
    {"entry ids", 0, 3, Block::None, SetEntryIds},
    {"add folder", 1, 1, Block::None, OnOne<&IOutlookStage::AddFolder>},
    {"delete folder", 1, 1, Block::None, OnOne<&IOutlookStage::DeleteFolder>},
    {"move folder", 2, 2, Block::None, OnTwo<&IOutlookStage::MoveFolder>},
    {"select", 1, 1, Block::None, OnOne<&IOutlookStage::Select>},
    {"switch folder", 1, 1, Block::None, OnOne<&IOutlookStage::SwitchFolder>},
    {"switch calendar", 1, 1, Block::None, SwitchCalendar},
    {"open contact", 1, 1, Block::None, OnOne<&IOutlookStage::OpenInspector>},
    {"close contact", 1, 1, Block::None, OnOne<&IOutlookStage::CloseInspector>},
    {"next contact", 2, 2, Block::None, OnTwo<&IOutlookStage::MoveInspector>},
};

}  // namespace

constinit const std::span<const Command> kContactCommands = kCommands;

}  // namespace quor::workbench
