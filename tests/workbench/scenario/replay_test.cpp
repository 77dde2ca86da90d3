#include "workbench/scenario/replay.h"

#include <gmock/gmock.h>

#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {
namespace {

using testing::ElementsAre;

constexpr char kDashes[] = "--------------------------------------------------";

TEST(Replay, PlaysWhatCameOffTheWire) {
  const Replay replay = ReplayFromLog({
      kDashes,
      "m_appVersion = 12",
      "** Recovery : USB device recovery.",
      "[S] (3) 2B 31 0D",
      "[R] (5) 26 04 01 0D 0A",
      "CAddin::ClickLineButton",
      "** Error : Delimit error STX.(41)... ---> Exec SI_FlushBuffers()",
      "[R] (2) 43 44",
      "** Error : Delimit error STX.(42)... ---> Exec SI_FlushBuffers()",
      "** Error : Read Message type error 0x09 ---> SI_FlushBuffers()",
      "** Down : USB device down...",
      "** Recovery : USB device recovery.",
      kDashes,
      "** Error : Device undefined.",
      "Read size unmatch. req=2, exec=1",
  });
  EXPECT_EQ(replay.outlookVersion, 12);
  EXPECT_EQ(replay.scenario,
            "plug\nstart\nticks 1\n"
            "queue 26 04 01 0D 0A\nticks 1\n"
            "queue 41 00 43 44\nticks 1\n"
            "queue 42 00\nticks 1\n"
            "queue 26 09\nticks 1\n"
            "unplug\nticks 1\n"
            "plug\nticks 1\n"
            "disconnect 1\nunload\nunplug\nstart\nticks 1\n"
            "queue 26\nticks 1\n");
}

TEST(Replay, StartsASessionOfItsOwnWhereTheLogBeginsInTheMiddle) {
  EXPECT_EQ(ReplayFromLog({"[R] (5) 26 04 01 0D 0A"}).scenario,
            "plug\nstart\nticks 1\nqueue 26 04 01 0D 0A\nticks 1\n");
  EXPECT_EQ(ReplayFromLog({}).scenario, "start\nticks 1\n");
}

TEST(Replay, RefusesFramesThatDisagreeWithThemselves) {
  for (const char* line : {"[R] (4) 26 04 01 0D 0A", "[R] (x) 26", "[R] (", "[R] (1) 2",
                           "** Error : Delimit error STX.(4"}) {
    EXPECT_THROW(ReplayFromLog({line}), CScenarioError) << line;
  }
}

TEST(Replay, ComparesOnlyWhatReceptionWrites) {
  EXPECT_THAT(
      ReceptionLines({"[S] (3) 2B 31 0D", "[R] (5) 26 04 01 0D 0A", "< Inform pop-up close >",
                      "LineType: 0x01", "** CLOSE_POP_UP_INDICATION ignored.", "CAddin::OnEventGet",
                      "OnEventGet::classUsbConnected", "OnEventGet::classSetStatusIndication",
                      "CAddin::SetBarState"}),
      ElementsAre("[R] (5) 26 04 01 0D 0A", "< Inform pop-up close >", "LineType: 0x01",
                  "** CLOSE_POP_UP_INDICATION ignored.", "OnEventGet::classSetStatusIndication"));
}

}  // namespace
}  // namespace quor::workbench
