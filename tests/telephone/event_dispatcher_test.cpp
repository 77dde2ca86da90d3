#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "telephone_desk.h"

namespace quor {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

TEST(Events, ConnectAndDisconnect) {
  CTelephoneDesk desk;
  desk.phone.Events().OnEventGet(5000, 0);
  EXPECT_EQ(desk.state.record, (TelephoneRecord{0, 1, 1, 1, 21, 1, 0}));
  EXPECT_THAT(desk.Journal(),
              ElementsAre("log: CAddin::OnEventGet", "log: OnEventGet::classUsbConnected",
                          "log: CAddin::SetUSBState", "log: CAddin::SetBarState", "redraw"));
  desk.state.caller.cidLine = 1;
  desk.phone.Events().OnEventGet(5001, 0);
  EXPECT_EQ(desk.state.record, TelephoneRecord{});
  EXPECT_THAT(
      desk.Journal(),
      ElementsAre("log: CAddin::OnEventGet", "log: OnEventGet::classUsbDisconnected",
                  "log: CAddin::SetUSBState", "hide", "log: CAddin::SetBarState", "disable"));
  for (int control = 0; control < 6; ++control) {
    EXPECT_FALSE(IsControlEnabled(desk.state, control, true)) << "pulled out while it rang";
  }
}

TEST(Events, StatusReport) {
  CTelephoneDesk desk;
  desk.state.caller.cidLine = 2;
  desk.state.caller.popupLine = 18;
  desk.state.cellDialLine = 18;
  desk.Status(2, 3, 4, 7, 9);
  EXPECT_EQ(desk.state.record, (TelephoneRecord{7, 2, 3, 4, 9, 0, 7}));
  EXPECT_THAT(desk.Journal(),
              ElementsAre("log: CAddin::OnEventGet", "log: OnEventGet::classSetStatusIndication",
                          "log: CAddin::SetUSBState", "follow 234", "log: CAddin::SetBarState",
                          "redraw", "cell menu", "speed dial menu"));
  EXPECT_EQ(desk.state.cellDialLine, 18u);
  desk.Status(2, 2, 1);
  EXPECT_EQ(desk.state.cellDialLine, 0u);
  EXPECT_EQ(desk.state.caller.popupLine, 0);
  EXPECT_EQ(desk.state.caller.cidLine, 2);
  EXPECT_THAT(desk.Deeds(), Not(Contains("hide")));
  desk.Status(1, 1, 1);
  EXPECT_EQ(desk.state.caller.cidLine, 0);
  EXPECT_THAT(desk.Deeds(), Contains("hide"));
}

TEST(Events, BusyReplyNamesTheCellThatDialled) {
  CTelephoneDesk desk;
  desk.Status(2, 2, 2, 0, 0, 1);
  EXPECT_EQ(desk.Deeds().front(), "message 1302");
  desk.state.cellDialLine = 17;
  desk.Status(2, 2, 2, 0, 0, 1);
  EXPECT_EQ(desk.Deeds().front(), "message 1305");
  EXPECT_EQ(desk.state.cellDialLine, 0u);
  desk.Status(2, 2, 2, 0, 0, 2);
  EXPECT_EQ(desk.Deeds().front(), "follow 222");
  desk.phone.Events().OnEventGet(5010, 0);
  EXPECT_THAT(desk.Journal(), ElementsAre("log: CAddin::OnEventGet", "message 1301"));
}

TEST(Events, APerLineReportMovesTheLinesAndNothingElse) {
  CTelephoneDesk desk;
  desk.state.caller.cidLine = 1;
  desk.records.incomingCall[3] = {18, 1, 1, 1, 7, 13};
  desk.phone.Events().OnEventGet(5101, 18);
  EXPECT_EQ(desk.state.record, (TelephoneRecord{7, 1, 1, 1, 13, 1, 7}));
  EXPECT_EQ(desk.state.caller.cidLine, 1);
  EXPECT_THAT(desk.Deeds(), ElementsAre("redraw"));
}

TEST(Events, CellRegistrationLeavesARingingCallAlone) {
  CTelephoneDesk desk;
  desk.Ring(1);
  desk.CallerId(1, "7");
  desk.records.cells.regInfo = 5;
  std::memcpy(desk.records.cells.names[0], "fourteen bytes", 14);
  std::memcpy(desk.records.cells.names[2], "\x01\xFF\0abc", 6);
  desk.Journal();
  desk.phone.Events().OnEventGet(5104, 0);
  EXPECT_THAT(desk.Journal(), ElementsAre("log: CAddin::OnEventGet",
                                          "log: CAddin::SetUSBRecvCellRegistInfo", "cell menu"));
  EXPECT_EQ(desk.state.caller.infoKind, 5);
  EXPECT_EQ(desk.state.caller.cidLine, 1);
  EXPECT_EQ(desk.state.cells.cellRegistered, 5);
  EXPECT_STREQ(desk.state.cells.names[0], "fourteen bytes");
  EXPECT_STREQ(desk.state.cells.names[2], "\x01\xFF");
  desk.records.cells = {};
  desk.phone.Events().OnEventGet(5104, 0);
  EXPECT_EQ(std::string(desk.state.cells.names[0], 15), std::string(15, '\0'));
}

TEST(Events, WithoutASlotOrWithoutANameDoNothing) {
  CTelephoneDesk desk;
  const TelephoneState before = desk.state;
  for (const uint32_t event : {5101u, 5102u, 5103u, 0u, 4999u, 5002u, 5105u, 0xFFFFFFFFu}) {
    for (const uint32_t lineType : {0u, 3u, 16u, 21u, 255u, 0x101u}) {
      EXPECT_EQ(desk.phone.Events().OnEventGet(event, lineType), 0);
    }
  }
  EXPECT_EQ(std::memcmp(&before, &desk.state, sizeof before), 0);
  EXPECT_THAT(desk.Deeds(), ElementsAre());
}

// Anything a base can send, in any order, mixed with clicks: nothing breaks, and 100,000 calls
// leave no more data than ten.
TEST(Soak, AnythingInAnyOrder) {
  for (const int version : {kToolbarVersion, kRibbonVersion}) {
    CTelephoneDesk desk(version);
    desk.BeQuiet();
    std::mt19937 random(20240229);
    const auto byte = [&random] { return static_cast<uint8_t>(random()); };
    const auto small = [&random] { return static_cast<uint8_t>(random() % 7); };
    const uint8_t kLines[] = {1, 2, 17, 18, 19, 20, 0, 99};
    for (int call = 0; call < 50000; ++call) {
      desk.tick += 100;
      desk.postsFail = random() % 8 == 0;
      for (auto& mode : desk.configuration.popUpModes)
        mode = small() % 4;
      const uint8_t lineType = kLines[random() % 8];
      const auto slot = static_cast<size_t>(random() % 6);
      CallerIdRecord& caller = desk.records.callerId[slot];
      for (char& character : caller.name)
        character = static_cast<char>(byte());
      for (char& character : caller.number)
        character = " 1234567890*#-()"[random() % 16];
      if (random() % 4 == 0) caller.number[0] = '\0';
      caller.lineType = lineType;
      caller.lineUnitNo = byte();
      for (auto& name : desk.records.cells.names) {
        for (char& character : name)
          character = static_cast<char>(byte());
      }
      desk.records.incomingCall[slot] = {lineType, small(), small(), small(), byte(), byte()};
      desk.records.status = {small(), small(), small(), byte(), byte(), byte()};
      desk.phone.Events().OnEventGet(5102, LineTypeFromSlot(static_cast<int>(slot)));
      desk.phone.Events().OnEventGet(5100u + small() % 5u, kLines[random() % 8]);
      desk.phone.Lines().Click(lineType);
      desk.phone.Dialler().DialCall(static_cast<int>(random() % 30), std::to_wstring(random()));

      ASSERT_LE(desk.configuration.callerLists.size(), kCallerListLimit);
      ASSERT_LE(desk.configuration.histories.size(), kHistoryLimit);
      ASSERT_EQ(desk.state.caller.name[16], '\0');
      ASSERT_EQ(desk.state.caller.number[24], '\0');
      for (const auto& name : desk.state.cells.names)
        ASSERT_EQ(name[14], '\0');
      for (const DialRecord& request : desk.records.dial)
        ASSERT_EQ(request.number[24], '\0');
    }
  }
}

TEST(StartUp, CountersAndDialStringBeginAnew) {
  CTelephoneDesk desk;
  desk.state.pendingClearLine = 1;
  desk.state.cellDialLine = 17;
  desk.state.lastDialTime = 5;
  desk.phone.Dialler().StoreBoxText(L"42");
  desk.phone.ResetCounters(desk.tick - 40);
  desk.phone.ResetDial();
  EXPECT_EQ(desk.state.pendingClearLine, 0u);
  EXPECT_EQ(desk.state.cellDialLine, 0u);
  EXPECT_EQ(desk.state.lastDialTime, 0u);
  EXPECT_EQ(desk.state.lastLineClickTime, 40u);
  EXPECT_EQ(desk.phone.Dialler().BoxText(), L"");
}

}  // namespace
}  // namespace quor
