#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/resource_ids.h"
#include "telephone/withheld_caller.h"
#include "telephone_desk.h"

namespace quor {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

TEST(IncomingCall, UnreadableContactKeepsWhatTheBaseSent) {
  CTelephoneDesk desk;
  desk.found["5551234"] = {L"Doe", L"555-1234", false};
  desk.CallerId(1, "5551234", "DOE J");
  EXPECT_THAT(desk.Deeds(), Contains("form 5551234"));
  EXPECT_EQ(desk.configuration.callerLists.front().name, L"DOE J 5551234");
  desk.found["5551234"] = {L"Doe", L""};
  desk.CallerId(1, "5551234", "DOE J");
  EXPECT_EQ(desk.configuration.callerLists.front().name, L"Doe 5551234");
}

// Which of the six modes applies: by the line, or for a cell by the report's unit number.
TEST(CallerDisplay, EverySlotHasItsOwnMode) {
  const struct {
    uint8_t lineType, unitNo;
    int slot;
  } kRows[] = {{1, 255, 0}, {2, 3, 1},  {17, 0, 2},  {17, 1, 3},
               {20, 2, 4},  {18, 3, 5}, {17, 4, -1}, {19, 255, -1}};
  for (const auto& row : kRows) {
    for (int chosen = 0; chosen < 6; ++chosen) {
      CTelephoneDesk desk;
      desk.SetStates(2, 2, 2);
      desk.configuration.popUpModes.fill(kPopUpOff);
      desk.configuration.popUpModes[static_cast<size_t>(chosen)] = kPopUpSimpleWindow;
      desk.CallerId(row.lineType, "5551234", "ACME", row.unitNo);
      const std::vector<std::string> journal = desk.Journal();
      const std::string fill = "fill 'ACME' '5551234' " + std::to_string(chosen);
      EXPECT_EQ(journal.back() == "show", row.slot == chosen);
      EXPECT_EQ(journal.end()[-2] == fill, row.slot == chosen);
      EXPECT_EQ(journal.back() == "log: CAddin::DisplayContactItem ReciveLineType Error.",
                row.slot == -1);
      EXPECT_EQ(desk.configuration.callerLists.size(), 1u);
    }
  }
}

TEST(CallerDisplay, ByMode) {
  const struct {
    int mode;
    const char* deed;
  } kRows[] = {{0, "line buttons"},
               {1, "new form '7'"},
               {2, "show"},
               {3, "new form '7'"},
               {-1, "new form '7'"}};
  for (const auto& row : kRows) {
    CTelephoneDesk desk;
    desk.SetStates(2, 2, 2);
    desk.configuration.popUpModes.fill(row.mode);
    desk.CallerId(1, "7");
    EXPECT_EQ(desk.Deeds().back(), row.deed) << row.mode;
  }
}

TEST(CallerWindow, ShownOnlyWhileBothOtherChannelsAreIdleOrBusy) {
  for (const uint8_t lineType : Bytes{1, 2, 17}) {
    for (int states = 0; states < 343; ++states) {
      const auto s1 = static_cast<uint8_t>(states / 49);
      const auto s2 = static_cast<uint8_t>(states / 7 % 7);
      const auto sc = static_cast<uint8_t>(states % 7);
      const auto quiet = [](uint8_t state) { return state == 1 || state == 2; };
      CTelephoneDesk desk;
      desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
      desk.SetStates(s1, s2, sc);
      desk.CallerId(lineType, "7");
      const bool expected = (lineType == 1 || quiet(s1)) && (lineType == 2 || quiet(s2)) &&
                            (lineType == 17 || quiet(sc));
      ASSERT_EQ(desk.Deeds().back() == "show", expected) << states << " on " << +lineType;
    }
  }
}

TEST(CallerWindow, LosesALongDistancePrefix) {
  const struct {
    const char* number;
    const char* shown;
  } kRows[] = {{"15551234567", "'5551234567'"},
               {"25551234567", "'25551234567'"},
               {"1555123456", "'1555123456'"},
               {"155512345678", "'155512345678'"}};
  for (const auto& row : kRows) {
    CTelephoneDesk desk;
    desk.SetStates(2, 2, 2);
    desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
    desk.CallerId(1, row.number, "N");
    EXPECT_THAT(desk.Deeds(), Contains("fill 'N' " + std::string(row.shown) + " 0"));
    EXPECT_EQ(desk.phone.IncomingCalls().LastCallerNumber(), row.number);
  }
}

TEST(CallerWindow, HasTheReasonOfAContactsNameAlone) {
  CTelephoneDesk desk;
  desk.SetStates(2, 2, 2);
  desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
  desk.found["5551234"] = {L"Doe", L"555-1234"};
  desk.CallerId(1, "5551234", "DOE J");
  EXPECT_THAT(desk.Deeds(), Contains("fill 'Doe' (7 of 7 of kind 3, 2 more) '555-1234' 0"));
  desk.found["5551234"].readable = false;
  desk.CallerId(1, "5551234", "DOE J");
  EXPECT_THAT(desk.Deeds(), Contains("fill 'DOE J' '5551234' 0"));
}

TEST(CallerWindow, SaysWhyAValueIsMissing) {
  CTelephoneDesk desk;
  desk.SetStates(2, 2, 2);
  desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
  CallerIdRecord& record = desk.records.callerId[0];
  record.noNum = 1;
  record.noName = 2;
  desk.CallerId(1, "");
  EXPECT_THAT(desk.Deeds(), Contains("fill 1402 1401 0"));
  desk.CallerId(1, "7", "N");
  EXPECT_THAT(desk.Deeds(), Contains("fill 'N' '7' 0")) << "codes of values that are there";
  record.noNum = record.noName = 0;
  record.longDistance = 1;
  desk.CallerId(1, "");
  EXPECT_THAT(desk.Deeds(), Contains("fill 1400 1400 0"));

  // Each code's own text, for the number and for the name.
  constexpr int kTexts[][2] = {{IDS_UNAVAILABLE_NUMBER, IDS_UNAVAILABLE_NAME},
                               {IDS_PRIVATE_CALLER, IDS_PRIVATE_CALLER},
                               {IDS_OUT_OF_AREA, IDS_OUT_OF_AREA},
                               {IDS_PAY_PHONE, IDS_PAY_PHONE},
                               {IDS_INTERNATIONAL, IDS_INTERNATIONAL},
                               {IDS_UNAVAILABLE_NUMBER, IDS_UNAVAILABLE_NAME},
                               {IDS_UNAVAILABLE_NUMBER, IDS_UNAVAILABLE_NAME},
                               {IDS_UNAVAILABLE_NAME_AND_NUMBER, IDS_UNAVAILABLE_NAME_AND_NUMBER},
                               {IDS_COIN_PHONE, IDS_COIN_PHONE},
                               {IDS_UNKNOWN, IDS_UNKNOWN}};
  for (uint8_t code = 0; code < uint8_t{std::size(kTexts)}; ++code) {
    EXPECT_EQ(WithheldNumberText(code, false), kTexts[code][0]) << +code;
    EXPECT_EQ(WithheldNameText(code, false), kTexts[code][1]) << +code;
    EXPECT_EQ(WithheldNumberText(code, true), code == 0 ? IDS_LONG_DISTANCE : kTexts[code][0])
        << +code;
  }
  EXPECT_EQ(WithheldNameText(0xFF, true), IDS_UNKNOWN);
}

TEST(CallerWindow, NotShownForACallThatEndedDuringTheLookUp) {
  CTelephoneDesk desk;
  desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
  desk.Ring(1);
  desk.whileLookingUp = [&desk] { desk.Status(1, 1, 1); };
  desk.CallerId(1, "7");
  EXPECT_THAT(desk.Deeds(), AllOf(Contains("hide"), Not(Contains("show"))));
  EXPECT_EQ(desk.configuration.callerLists.size(), 1u);
}

TEST(ClosePopup, HidesTheWindowOrLooksTheNumberUp) {
  CTelephoneDesk desk;
  desk.configuration.popUpModes = {2, 1, 1, 1, 1, 2};
  desk.CallerId(2, "777", "ACME");
  desk.Journal();
  for (const uint8_t lineType : Bytes{1, 2, 20}) {
    desk.records.lastCaller[static_cast<size_t>(SlotFromLineType(lineType))] = {lineType, "42"};
    desk.phone.Events().OnEventGet(5103, lineType);
    EXPECT_EQ(desk.state.caller.infoKind, 4);
    EXPECT_EQ(desk.state.caller.popupLine, lineType);
    EXPECT_EQ(desk.state.caller.numberLength, 2);
    EXPECT_EQ(desk.state.caller.cidLine, 0);
    EXPECT_STREQ(desk.state.caller.name, "");
    const std::vector<std::string> journal = desk.Journal();
    EXPECT_EQ(journal[2], "log: CAddin::SetUSBRecvCPOPUPInfo");
    EXPECT_EQ(journal.back(), lineType == 2 ? "log: FindPhoneNumber not found" : "hide");
    EXPECT_EQ(journal.end()[-2] == "find unchecked 42", lineType == 2);
  }
  EXPECT_EQ(desk.phone.IncomingCalls().OnClosePopup(), 0);
  EXPECT_THAT(desk.Journal(), ElementsAre("log: CAddin::OnClosePopup", "hide"));
}

}  // namespace
}  // namespace quor
