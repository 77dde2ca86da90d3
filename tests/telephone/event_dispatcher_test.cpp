#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "telephone_desk.h"

namespace quor {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

TEST(Events, ConnectAndDisconnect) {
  CTelephoneDesk desk;
  desk.phone.Events().OnEventGet(5000, 0);
  EXPECT_EQ(desk.state.record, (TelephoneRecord{0, 1, 1, 1, 21, 1, 0}));
  desk.state.caller.cidLine = 1;
  desk.phone.Events().OnEventGet(5001, 0);
  EXPECT_EQ(desk.state.record, TelephoneRecord{});
  for (int control = 0; control < 6; ++control) {
    EXPECT_FALSE(IsControlEnabled(desk.state, control, true)) << "pulled out while it rang";
  }
}

TEST(Events, ACallEndsWithTheReportsOfItsLines) {
  CTelephoneDesk desk;
  desk.state.caller.cidLine = 2;
  desk.state.caller.popupLine = 18;
  desk.state.cellDialLine = 18;
  desk.Status(2, 3, 4, 7, 9);
  EXPECT_EQ(desk.state.record, (TelephoneRecord{7, 2, 3, 4, 9, 0, 7}));
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
}

TEST(Events, CellRegistrationLeavesARingingCallAlone) {
  CTelephoneDesk desk;
  desk.Ring(1);
  desk.CallerId(1, "7");
  desk.records.cells.regInfo = 5;
  std::memcpy(desk.records.cells.names[0], "fourteen bytes", 14);
  std::memcpy(desk.records.cells.names[2], "\x01\xFF\0abc", 6);
  desk.phone.Events().OnEventGet(5104, 0);
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
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): nothing at all is written
  EXPECT_EQ(std::memcmp(&before, &desk.state, sizeof before), 0);
  EXPECT_THAT(desk.Deeds(), ElementsAre());
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
