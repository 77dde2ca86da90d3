#include "workbench/scenario/run.h"

#include <gmock/gmock.h>

#include "tests/workbench/scenario/noted_stage.h"

namespace quor::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string Stamped(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines)
    text += "2009/03/07 08:05:09.042 " + line + "\r\n";
  return text;
}

TEST(Run, StopsAtTheFirstFailureAndNamesItsLine) {
  CNotedStage stage;
  EXPECT_THAT(stage.Play("plug\n\nexpect result S_FALSE # so\nunplug\n"),
              HasSubstr("line 3: expect result S_FALSE\n  the add-in returned S_OK"));
  EXPECT_EQ(stage.notes.size(), 1u);
}

TEST(Run, RepeatsABlockAndNamesTheRoundOfAFailure) {
  CNotedStage stage;
  EXPECT_EQ(stage.Play("repeat 2:\n"
                       "| delete contact \"Anna {round}\"\n"
                       "|14+ unplug\n"
                       "| repeat {round}:\n"
                       "| | say {round}\n"
                       "| file a:\n"
                       "| | {round}\n"),
            "");
  EXPECT_THAT(stage.notes, ElementsAre("delete Anna 1", "say 1", "write a", "delete Anna 2",
                                       "say 1", "say 2", "write a"));
  EXPECT_EQ(stage.files["a"], "2\n");
  stage.written = {{0x2B}};
  EXPECT_THAT(stage.Play("repeat 3:\n| expect wire 2B\n"),
              HasSubstr("line 1, round 2: expect wire 2B\n  on the wire: nothing"));
  EXPECT_THAT(stage.Play("plug\nrepeat 0:\n| plug\n"), HasSubstr("line 2: repeat 0:\n  \"0\" is"));
  stage.written = {{0x2B}};
  EXPECT_THAT(stage.Play("during any 1:\n| repeat 2:\n| | expect wire 0{round}\n"),
              HasSubstr("inside the call: on the wire: 2B"));
}

TEST(Run, LogExpectationsConsumeWhatTheyCompare) {
  CNotedStage stage;
  stage.log = Stamped({"a", "b"});
  EXPECT_EQ(stage.Play("expect log has b\n"
                       "expect log has b times 1\n"
                       "expect log with b x:\n| b\n"
                       "expect log:\n| a\n| b\n"
                       "expect log nothing\n"
                       "expect whole log:\n| a\n| b\n"),
            "");
  EXPECT_THAT(stage.Play("expect log:\n| a"), HasSubstr("expected: (end)\n  seen:     b"));
  EXPECT_THAT(stage.Play("expect log has c"), HasSubstr("0 times"));
  EXPECT_THAT(stage.Play("expect log has a times 2"), HasSubstr("1 times"));
  EXPECT_THAT(stage.Play("expect log with a b:\n| b"), HasSubstr("expected: b\n  seen:     a"));
  EXPECT_THAT(stage.Play("expect no log"), HasSubstr("there is a diagnostic log"));
  stage.log = "no stamp\n";
  EXPECT_THAT(stage.Play("forget"), HasSubstr("no time stamp"));
}

TEST(Run, WireExpectationsConsumeWhatTheyCompare) {
  CNotedStage stage;
  stage.written = {{0x2B, 0x31, 0x0D}, {0x2B}};
  EXPECT_EQ(stage.Play("expect wire 2B 31 0D 2B\nexpect wire nothing"), "");
  stage.written = {{0x2B, 0x31, 0x0D}, {0x2B}};
  EXPECT_THAT(stage.Play("expect wire 2B 31 0D"), HasSubstr("on the wire: 2B 31 0D 2B"));
  EXPECT_THAT(stage.Play("forget\nexpect wire 2B"), HasSubstr("on the wire: nothing"));
}

TEST(Run, UsbCallsAreComparedWithoutTheEnumeration) {
  CNotedStage stage;
  const std::vector<std::string> calls = {"SI_GetNumDevices() = 0, 1", "SI_Open(0) = 0, #1",
                                          "SI_Close(#1) = 0"};
  stage.usbCalls = calls;
  EXPECT_EQ(stage.Play("expect usb:\n| SI_Open(0) = 0, #1\n| SI_Close(#1) = 0\n"), "");
  stage.usbCalls = calls;
  EXPECT_THAT(stage.Play("expect usb all:\n| SI_Open(0) = 0, #1"),
              HasSubstr("seen:     SI_GetNumDevices() = 0, 1"));
  EXPECT_THAT(stage.Play("forget\nexpect usb:\n| y"), HasSubstr("expected: y\n  seen:     (end)"));
}

TEST(Run, ControlsAndWindowsAreCompared) {
  CNotedStage stage;
  stage.controls = {{"Cell Tag",
                     "menu",
                     "Call from cell",
                     "",
                     true,
                     true,
                     false,
                     {{"Cell1 Tag", "button", "Cell1", "", false, true, false, {}}}}};
  stage.windows = {{"Plug-in", "#32770", false, {"x"}},
                   {"Plug-in", "#32770", true, {"Busy.", "OK"}}};
  EXPECT_EQ(stage.Play("expect control \"Cell Tag\" enabled yes items Cell1\n"
                       "expect control \"Cell Tag\" > Cell1 enabled no caption Cell1\n"
                       "expect control Other missing\n"
                       "expect window Plug-in shown:\n| Busy.\n| OK\n"
                       "expect window Plug-in hidden\n"
                       "expect window \"Plug-in with x\" hidden\n"
                       "expect window Plug-in shown:\n| ...sy.\n| ...\n"
                       "expect window Other missing\n"
                       "wait control \"Cell Tag\" enabled yes\n"),
            "");
  EXPECT_NE(stage.Play("expect control \"Cell Tag\" > Cell1 enabled yes"), "");
  EXPECT_NE(stage.Play("expect control \"Cell Tag\" missing"), "");
  EXPECT_NE(stage.Play("expect control Other enabled yes"), "");
  EXPECT_NE(stage.Play("expect window Plug-in shown:\n| Busy."), "");
  EXPECT_NE(stage.Play("expect window Plug-in shown:\n| ...busy.\n| OK"), "");
  EXPECT_NE(stage.Play("expect window Plug-in missing"), "");
  EXPECT_NE(stage.Play("expect window \"Plug-in with OK\" hidden"), "");
  EXPECT_NE(stage.Play("expect window \"Plug-in with y\" shown"), "");
  EXPECT_NE(stage.Play("wait control \"Cell Tag\" enabled no"), "");
}

TEST(Run, UseMustNotGrowButMayShrink) {
  CNotedStage stage;
  // Each row: the increase since "note use", and the expected message.
  const struct {
    ResourceUse more;
    const char* said;
  } rows[] = {{{}, ""},
              {{-1, -1, -1, -1, -1}, ""},
              {{1, 0, 0, 0, 0}, "memory blocks of the add-in: 11, recorded 10"},
              {{0, 0, 1, 0, 0}, "handles: 31"},
              {{0, 0, 0, 1, 0}, "GDI objects: 41"},
              {{0, 0, 0, 0, 1}, "windows: 51"},
              {{0, 3 * 1024, 0, 0, 0}, "3 KB more"}};
  for (const auto& row : rows) {
    stage.use = {10, 20, 30, 40, 50};
    // The process uses more after the poll.
    stage.moreAtPoll = row.more;
    const std::string failure = stage.Play("note use\npoll\nexpect use memory 2");
    EXPECT_THAT(failure, HasSubstr(row.said));
    EXPECT_EQ(failure.empty(), *row.said == '\0');
  }
}

TEST(Run, EvidenceIsCompared) {
  CNotedStage stage;
  stage.files = {{"a", "x\n"}};
  stage.xml = {"0"};
  stage.registry = "3";
  stage.opened = "Temp";
  EXPECT_EQ(stage.Play("expect file a exists\nexpect file a is:\n| x\nexpect file b missing\n"
                       "expect files:\n| a\nexpect xml a //b 0\nexpect setting LanguageNo 0\n"
                       "expect registry HKLM\\x LoadBehavior 3\nexpect held nothing\n"
                       "expect opened Temp\nnote held\nexpect held noted"),
            "");
  for (const char* line : {"expect opened .", "expect file a missing", "expect file b exists",
                           "expect file a is:\n| y", "expect files:\n| b", "expect xml a //b",
                           "expect setting LanguageNo 1", "expect registry HKLM\\x LoadBehavior 2",
                           "expect registry HKLM\\x y", "expect held:\n| Explorer"}) {
    EXPECT_NE(stage.Play(line), "") << line;
  }
}

TEST(Run, WhatGoesWrongInTheMiddleOfACallIsTold) {
  CNotedStage stage;
  EXPECT_EQ(stage.Play("during Items.Count 3:\n| plug\n"), "");
  EXPECT_EQ(stage.notes.back(), "plug");
  EXPECT_THAT(stage.Play("during any 1:\n| expect result S_FALSE\n"),
              HasSubstr("inside the call: the add-in returned S_OK"));
}

TEST(Run, TheEndChecksWhatIsHeld) {
  CNotedStage stage;
  CRun run(stage.Stages(), stage, stage);
  EXPECT_TRUE(run.Finish());
  stage.held = {"Explorer"};
  EXPECT_FALSE(run.Finish());
  EXPECT_THAT(stage.Play("unload"), HasSubstr("the add-in still holds\n  Explorer"));
}

}  // namespace
}  // namespace quor::workbench
