#include "workbench/scenario/command.h"

#include <gmock/gmock.h>

#include <fstream>
#include <set>
#include <sstream>

#include "tests/workbench/scenario/noted_stage.h"

namespace quor::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Commands, ReachTheStage) {
  const struct {
    const char* line;
    const char* note;
  } rows[] = {
      {"plug", "plug 0001 Telephone base link 10C4 EA61"},
      {"plug serial=unreadable vendor=1", "plug (none) Telephone base link 1 EA61"},
      {"unplug 2", "unplug 1"},
      {"library old", "library old"},
      {"queue 26 01 pause 20 0D0A", "queue +0: 26 01 +20: 0D 0A"},
      {"queue close-popup line=line2", "queue +0: 26 04 02 0D 0A"},
      {"queue 4142*2 43*0 0D", "queue +0: 41 42 41 42 0D"},
      {"queue cut 1 3000 close-popup", "queue +0: 26 +3000: 04 01 0D 0A"},
      {"report queue overrun calls 3", "report 1 true x3"},
      {"report queue 9 count 5", "report 9 5 x1"},
      {"fail SI_Open status 4", "fail SI_Open 1-1 status 4"},
      {"fail SI_Read call 2-5 status 0xFF", "fail SI_Read 2-5 status 255"},
      {"fail SI_Read call 2- status 1", "fail SI_Read 2-0 status 1"},
      {"shorten SI_Write call 2 to 1", "shorten SI_Write 2-2 status 0 to 1"},
      {"fail member Folders.Count", "fail member Folders.Count 1-1 status 2147500037"},
      {"fail member any call 7 status S_FALSE", "fail member  7-7 status 1"},
      {"fail system PostMessageA call 2", "fail system PostMessageA 2-2 status 1816"},
      {"click \"Cell menu\" > Cell1 of \"Anna Lee\"", "click Anna Lee/Cell menu/Cell1"},
      {"pick Dial 555", "pick Dial: 555"},
      {"enter Title 2 text", "enter Title 2: text"},
      {"open options", "open options"},
      {"keys Title Alt+l", "key Title: Alt+l"},
      {"change contact Anna HomeTelephoneNumber 5", "change Anna.HomeTelephoneNumber=5"},
      {"add contact Customers:\n| BEGIN:VCARD", "add to Customers: BEGIN:VCARD\n"},
      {"disconnect 1", "disconnect 1"},
      {"poll", "poll now"},
      {"watch xml a", "watch a"},
      {"screenshot idle", "show picture: idle.png"},
      {"picture idle", "show picture: idle 100"},
      {"picture idle dark menu Dial > \"Tom & Co\" scale 150",
       "show picture: idle 150 > Dial > Tom & Co dark"},
  };
  for (const auto& row : rows) {
    CNotedStage stage;
    EXPECT_EQ(stage.Play(row.line), "") << row.line;
    EXPECT_THAT(stage.notes, ElementsAre(row.note)) << row.line;
  }
}

TEST(Commands, RefuseWhatMakesNoSense) {
  const struct {
    const char* line;
    const char* error;
  } rows[] = {
      {"plugg", "no command is called \"plugg\""},
      {"ring line3", "is not line1"},
      {"caller gives up", "nothing rings"},
      {"other side hangs up line1", "no call on that line"},
      {"queue", "usage: queue HEX"},
      {"queue 2", "not hexadecimal"},
      {"queue 41*x", "not hexadecimal"},
      {"queue 41*99999999", "not hexadecimal"},
      {"queue 26 pause", "missing at the end"},
      {"queue 26 pause 3", "no bytes"},
      {"queue cut 5 0 close-popup", "only 5 bytes"},
      {"plug colour=red", "is not serial="},
      {"unplug 0", "not a number from 1 to 10"},
      {"fail SI_Open call 2", "which status?"},
      {"fail SI_Open call 0 status 1", "not a call number"},
      {"fail SI_Open call 5-2 status 1", "not a call number"},
      {"fail member any cal 3", "neither call nor status"},
      {"expect use", "nothing was noted"},
      {"expect watched 1", "only 0 times"},
      {"expect log", "usage: expect log"},
      {"expect log nothing:\n| x", "usage: expect log"},
      {"expect log:", "the block is empty"},
      {"expect whole log", "needs a block"},
      {"plug:\n| x", "takes no block"},
      {"ticks many", "not a number"},
      {"ticks 99999999999", "not a number"},
      {"expect result S_PERHAPS", "no result is called"},
      {"expect window Title", "usage: expect window"},
      {"expect window Title open", "usage: expect window"},
      {"picture idle scale 120", "at 100, 150 and 200 %"},
      {"picture idle menu", "missing at the end"},
      {"picture idle bright", "\"bright\" has no meaning"},
      {"disconnect 4", "not a number from 0 to 3"},
  };
  for (const auto& row : rows) {
    CNotedStage stage;
    stage.windows = {{"Title", "#32770", true, {}}};
    EXPECT_THAT(stage.Play(row.line), HasSubstr(row.error)) << row.line;
  }
}

TEST(Commands, ShowFiguresAsSharesOfWhatOutlookAllows) {
  CNotedStage stage;
  stage.figures = {.callers = {{4, 3, 0.1, 0, 1}, {5, 4, 0.5, 0.4, 1}, {12, 1, 2, 1, 2}},
                   .connection = 42,
                   .shutdown = 5,
                   .folderSwitch = std::nullopt,
                   .scan = Figures::Work{7, 1500, 250.5},
                   .messages = Figures::Work{21, 60, 9.75},
                   .ribbonCallbacks = 30,
                   .ribbonInvalidations = 1,
                   .ribbonMicroseconds = 12.25};
  EXPECT_EQ(stage.Play("show figures"), "");
  EXPECT_THAT(
      stage.notes,
      ElementsAre("show OnConnection: 42.0 ms, 4.2 % of 1000 ms\n"
                  "shutdown: 5.0 ms, 1.0 % of 500 ms\n"
                  "start-up scan: 7 calls of the object model, 1500.0 us inside it, "
                  "250.5 us in the add-in\n"
                  "messages: 21 calls of the object model, 60.0 us inside it, "
                  "9.8 us in the add-in\n"
                  "caller ID to caller window: 5.0 ms, at most 12.0 ms (3 calls), 2 messages "
                  "on the way; 60.0 % in saving the settings, 10.0 % in showing the window, "
                  "8.0 % in Outlook's objects\n"
                  "ribbon: 1 invalidations, 30 callbacks, 12.2 us in them"));
}

TEST(Commands, HaveDistinctNamesAndAreInTheManual) {
  std::set<std::string> names;
  for (const CommandGroup& group : CommandGroups()) {
    for (const Command& command : group.commands) {
      EXPECT_TRUE(names.insert(command.words).second) << command.words;
      EXPECT_THAT(CommandHelp(), HasSubstr(std::string("\n  ") + command.words));
    }
  }
  std::ifstream manual(QUOR_WORKBENCH_MANUAL);
  std::stringstream text;
  text << manual.rdbuf();
  EXPECT_TRUE(text.str().find(CommandHelpMarkdown()) != std::string::npos)
      << "docs/workbench.md: replace its list of commands by the output of workbench "
         "--help-markdown";
}

}  // namespace
}  // namespace quor::workbench
