// What the telephone does, in order, where scenarios of the add-in do not play it.
#include "telephone/telephone.h"

#include <gmock/gmock.h>

#include <cstring>

#include "resources/resource_ids.h"
#include "telephone/withheld_caller.h"
#include "tests/telephone/telephone_desk.h"

namespace quor {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

std::string Sent(const CTelephoneDesk& desk, int slot = 0) {
  const DialRecord& request = desk.records.dial[static_cast<size_t>(slot)];
  return {request.number, request.numberLength};
}

TEST(Dialling, NumbersSentAndRefused) {
  using namespace std::string_literals;
  const struct {
    std::wstring typed;
    const char* sent;
    const char* message;
  } kRows[] = {
      {L"12p34f", "12P34F", nullptr},
      {L"123456789012345678901234", "123456789012345678901234", nullptr},
      {L"1234567890123456789012345", "", "message 1304"},
      {L"1234567890-1234567890-123456", "", "message 1304"},
      {std::wstring(300, L'1'), "", "message 1304"},
      {L"123-4567", "", "message 1303"},
      {L"12a", "", "message 1303"},
      {L" ", "", "message 1303"},
      {L"12\0*4"s, "", "message 1303"},
      {L"\0"s, "", "message 1303"},
      {L"12\u20AC\u0416", "", "message 1303"},
      {L"\uFF11\uFF12", "", "message 1303"},  // full-width digits
  };
  for (const auto& row : kRows) {
    CTelephoneDesk desk;
    desk.SetStates(5, 2, 2);
    EXPECT_EQ(desk.phone.Dialler().DialCall(0, row.typed), row.message == nullptr) << row.sent;
    EXPECT_EQ(Sent(desk), row.sent);
    EXPECT_EQ(desk.configuration.histories.size(), row.message ? 0u : 1u);
    if (row.message) {
      EXPECT_THAT(desk.Deeds(), ElementsAre(row.message));
    }
  }
}

TEST(Dialling, TakesTheHeldLineAndNoOther) {
  for (const uint8_t lineType : Bytes{1, 2, 17, 20}) {
    CTelephoneDesk desk;
    desk.SetStates(lineType == 1 ? 5 : 2, lineType == 2 ? 5 : 2, lineType >= 17 ? 5 : 2);
    EXPECT_EQ(desk.phone.Dialler().DialUSB("42"), lineType < 17) << "held by no cell";
    desk.state.cellDialLine = lineType;
    EXPECT_TRUE(desk.phone.Dialler().DialUSB("42"));
    EXPECT_EQ(Sent(desk, SlotFromLineType(lineType)), "42");
    EXPECT_THAT(desk.Deeds(), Contains("post 11 " + std::to_string(lineType)));
  }
}

TEST(Dialling, LogsAndDoesInThisOrder) {
  CTelephoneDesk desk;
  desk.SetStates(5, 2, 2);
  desk.found["42P"] = {L"Doe, J\u00F6hn", L"42 p"};
  desk.phone.Dialler().OnChangeComboBox(L"42p", 0);
  EXPECT_THAT(desk.Journal(),
              ElementsAre("log: CAddin::OnChangeComboBox", "log: CAddin::DialCall",
                          "find unchecked 42P", "log: CAddin::DialUSB", "post 11 1", "history",
                          "box '42p'", "log: CAddin::Dial Clear Set", "save"));
  EXPECT_THAT(desk.configuration.histories,
              ElementsAre(CallEntry{L"42p", L"Doe, J\u00F6hn", L"42P"}));
}

TEST(DialList, NewestFirstTwentyAtMostEachNumberOnce) {
  CTelephoneDesk desk;
  desk.SetStates(5, 2, 2);
  CDialler& dialler = desk.phone.Dialler();
  const std::vector<CallEntry>& list = desk.configuration.histories;
  for (int i = 1; i <= 20; ++i)
    dialler.DialCall(0, std::to_wstring(i));
  dialler.DialCall(0, L"5");
  EXPECT_EQ(list.front().number, L"5");
  EXPECT_EQ(list.back().number, L"1") << "dialling a listed number pushes nothing out";
  dialler.DialCall(0, L"21");
  EXPECT_EQ(list.back().number, L"2");
  desk.configuration.histories.resize(30, {L"x", L"", L"9"});
  dialler.DialCall(0, L"22");
  EXPECT_EQ(list.size(), 20u) << "also when the file held more";
}

TEST(DialList, APickedEntryShowsItsTextAndDialsItsNumber) {
  CTelephoneDesk desk;
  desk.SetStates(5, 2, 2);
  CDialler& dialler = desk.phone.Dialler();
  desk.configuration.histories = {{L"Office", L"", L"11"}, {L"Home", L"", L"22f"}};
  EXPECT_TRUE(dialler.DialCall(2, L"Home"));
  EXPECT_EQ(Sent(desk), "22F");
  EXPECT_THAT(desk.Deeds(), Contains("box 'Home'"));
  EXPECT_EQ(desk.configuration.histories.front(), (CallEntry{L"Home", L"", L"22F"}));

  // An index outside the list counts as typed.
  for (const int index : {-1, 4, 1000})
    EXPECT_FALSE(dialler.DialCall(index, L"Home"));
  desk.configuration.histories = {{L"Edited", L"", L"1-2"}, {L"Empty", L"", L""}};
  EXPECT_FALSE(dialler.DialCall(1, L"33")) << "a hand-edited file is checked too";
  desk.Journal();
  EXPECT_TRUE(dialler.DialCall(2, L"33"));
  EXPECT_EQ(desk.Deeds().front(), "post 11 1") << "an empty number passes and is nobody's";
}

TEST(Ribbon, ALineDialsTheBoxOrAnotherNumber) {
  CTelephoneDesk desk(kRibbonVersion);
  CLineControl& lines = desk.phone.Lines();
  desk.SetStates(3, 1, 1);
  desk.configuration.histories = {{L"Office", L"", L"11"}};
  desk.phone.Dialler().StoreDialText(L"Office");
  // The list changes after the text was picked.
  desk.configuration.histories.insert(desk.configuration.histories.begin(), {L"9", L"", L"9"});
  EXPECT_TRUE(lines.Click(19));
  EXPECT_EQ(Sent(desk, 4), "11");
  EXPECT_EQ(desk.state.cellDialLine, 19u);
  EXPECT_THAT(desk.Deeds(), Not(Contains("history")));

  EXPECT_FALSE(lines.DialOnLine(1, L"7")) << "in a call since it was clicked";
  EXPECT_FALSE(lines.DialOnLine(18, L"ask Mary"));
  EXPECT_THAT(desk.Deeds(), ElementsAre("message 1303"));
  EXPECT_EQ(desk.state.pendingClearLine, 19u);
  EXPECT_EQ(desk.state.cellDialLine, 0u) << "a failed dial waits for no cell";
  EXPECT_EQ(desk.phone.Dialler().DialText(), L"Office");
  EXPECT_TRUE(lines.DialOnLine(18, L"7"));
  EXPECT_EQ(Sent(desk, 3), "7");
  EXPECT_EQ(desk.state.cellDialLine, 18u);
  desk.phone.Dialler().StoreDialText(L"");
  EXPECT_FALSE(lines.Click(2));
  EXPECT_EQ(desk.state.cellDialLine, 0u);
}

TEST(DialBox, IsClearedAsConfigured) {
  CTelephoneDesk desk;
  desk.phone.Dialler().StoreDialText(L"42");
  desk.configuration.dialClear = 0;
  desk.phone.Dialler().OnClearDial();
  EXPECT_EQ(desk.phone.Dialler().DialText(), L"42");
  desk.configuration.dialClear = 1;
  desk.phone.Dialler().OnClearDial();
  EXPECT_EQ(desk.phone.Dialler().DialText(), L"");
}

TEST(LineState, TakesAndReleasesOnceADebounceTime) {
  CTelephoneDesk desk;
  CLineControl& lines = desk.phone.Lines();
  desk.configuration.delayBtnEvent = 500;
  desk.SetStates(1, 1, 1);
  desk.state.lastLineClickTime = 0xFFFFFF00;  // the tick count wraps around
  for (const uint32_t tooSoon : {0xFFFFFF00u, 0xFFFFFFF0u, 500u - 0x100u - 1u}) {
    desk.tick = tooSoon;
    EXPECT_FALSE(lines.Click(19)) << tooSoon;
    EXPECT_EQ(desk.state.cellDialLine, 0u) << "a dropped click waits for no answer";
  }
  desk.tick += 1;
  EXPECT_TRUE(lines.Click(19));
  EXPECT_EQ(desk.Deeds(), (std::vector<std::string>{"only cell 2", "post 1 0", "post 0 1"}));
  // Refused, but each of these clicks restarts the debounce time.
  for (const uint8_t refused : Bytes{5, 0, 2, 3, 4, 6, 255}) {
    desk.tick += 500;
    EXPECT_FALSE(lines.SetLineState(19, refused)) << +refused;
    EXPECT_EQ(desk.state.lastLineClickTime, desk.tick);
  }
  desk.configuration.delayBtnEvent = -1;
  EXPECT_TRUE(lines.Click(19)) << "a negative time from the file is none";
  EXPECT_EQ(desk.state.cellDialLine, 0u);
  desk.Journal();
  lines.AnswerUSB(-1);
  EXPECT_FALSE(lines.DropUSB(21)) << "no such line";
  EXPECT_THAT(desk.Deeds(), ElementsAre());
}

// Which of the six modes applies: by the line, or for a cell by the report's unit number.
TEST(CallerDisplay, EverySlotHasItsOwnMode) {
  const struct {
    uint8_t lineType, unitNo;
    int slot;
  } kRows[] = {{1, 255, 0}, {2, 3, 1},  {17, 0, 2},  {17, 1, 3},
               {20, 2, 4},  {18, 3, 5}, {17, 4, -1}, {19, 255, -1}};
  for (const auto& row : kRows) {
    CTelephoneDesk desk;
    desk.SetStates(2, 2, 2);
    desk.configuration.popUpModes.fill(kPopUpOff);
    desk.configuration.popUpModes.at(row.slot < 0 ? 2 : static_cast<size_t>(row.slot)) = 2;
    desk.CallerId(row.lineType, "5551234", "ACME", row.unitNo);
    const std::string fill = "fill 'ACME' '5551234' " + std::to_string(row.slot);
    if (row.slot < 0) {
      EXPECT_EQ(desk.Journal().back(), "log: CAddin::DisplayContactItem ReciveLineType Error.");
    } else {
      EXPECT_THAT(desk.Deeds(), AllOf(Contains(fill), Contains("show")));
    }
  }
}

TEST(CallerDisplay, ByMode) {
  const std::pair<int, const char*> kRows[] = {{0, "line buttons"},
                                               {1, "new form '7'"},
                                               {2, "show"},
                                               {3, "new form '7'"},
                                               {-1, "new form '7'"}};
  for (const auto& [mode, deed] : kRows) {
    CTelephoneDesk desk;
    desk.SetStates(2, 2, 2);
    desk.configuration.popUpModes.fill(mode);
    desk.CallerId(1, "7");
    EXPECT_EQ(desk.Deeds().back(), deed) << mode;
  }
}

TEST(CallerWindow, ShownOnlyWhileBothOtherChannelsAreIdleOrBusy) {
  const auto quiet = [](uint8_t state) { return state == 1 || state == 2; };
  for (const uint8_t lineType : Bytes{1, 2, 17}) {
    for (uint8_t state = 0; state < 7; ++state) {
      for (const uint8_t other : Bytes{1, 2, 17}) {
        CTelephoneDesk desk;
        desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
        desk.SetStates(other == 1 ? state : 2, other == 2 ? state : 1, other == 17 ? state : 2);
        desk.CallerId(lineType, "7");
        EXPECT_EQ(desk.Deeds().back() == "show", lineType == other || quiet(state))
            << +lineType << " " << +other << " in " << +state;
      }
    }
  }
}

TEST(CallerWindow, ShowsWhatIsKnown) {
  CTelephoneDesk desk;
  desk.SetStates(2, 2, 2);
  desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
  desk.found["5551234"] = {L"Doe", L"555-1234"};
  CallerIdRecord& record = desk.records.callerId[0];
  record.noNum = 1;
  record.noName = 2;
  const struct {
    const char* number;
    const char* name;
    const char* shown;
  } kRows[] = {
      {"5551234", "DOE J", "fill 'Doe' '555-1234' 0"},
      {"15551234567", "N", "fill 'N' '5551234567' 0"},  // without the long-distance prefix
      {"1555123456", "N", "fill 'N' '1555123456' 0"},
      {"155512345678", "N", "fill 'N' '155512345678' 0"},
      {"", "", "fill 1402 1401 0"},
  };
  for (const auto& row : kRows) {
    desk.CallerId(1, row.number, row.name);
    EXPECT_THAT(desk.Deeds(), Contains(row.shown));
    EXPECT_EQ(desk.phone.IncomingCalls().LastCallerNumber(), row.number);
  }
  // A contact that cannot be read keeps what the base sent.
  desk.found["5551234"].readable = false;
  desk.CallerId(1, "5551234", "DOE J");
  EXPECT_THAT(desk.Deeds(), Contains("fill 'DOE J' '5551234' 0"));
  desk.found["5551234"] = {L"Doe", L""};
  desk.CallerId(1, "5551234", "DOE J");
  EXPECT_EQ(desk.configuration.callerLists.front().name, L"Doe 5551234");
}

TEST(CallerWindow, SaysWhyAValueIsMissing) {
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
  EXPECT_EQ(WithheldNameText(0, true), IDS_LONG_DISTANCE);
  EXPECT_EQ(WithheldNameText(0xFF, true), IDS_UNKNOWN);
}

TEST(CallerWindow, NotShownForACallThatEndedDuringTheLookUp) {
  CTelephoneDesk desk;
  desk.SetStates(2, 2, 2);
  desk.configuration.popUpModes.fill(kPopUpSimpleWindow);
  desk.whileLookingUp = [&desk] { desk.Status(1, 1, 1); };
  desk.CallerId(1, "7");
  EXPECT_THAT(desk.Deeds(), AllOf(Contains("hide"), Not(Contains("show"))));
  EXPECT_EQ(desk.configuration.callerLists.size(), 1u);
}

TEST(ClosePopup, HidesTheWindowOrLooksTheNumberUp) {
  CTelephoneDesk desk;
  desk.configuration.popUpModes = {2, 1, 1, 1, 1, 2};
  desk.CallerId(2, "777", "ACME");
  for (const uint8_t lineType : Bytes{1, 2, 20}) {
    desk.records.lastCaller[static_cast<size_t>(SlotFromLineType(lineType))] = {lineType, "42"};
    desk.Journal();
    desk.phone.Events().OnEventGet(5103, lineType);
    EXPECT_EQ(desk.state.caller.popupLine, lineType);
    EXPECT_EQ(desk.state.caller.numberLength, 2);
    EXPECT_EQ(desk.state.caller.cidLine, 0);
    EXPECT_STREQ(desk.state.caller.name, "");
    EXPECT_EQ(desk.Deeds().back(), lineType == 2 ? "find unchecked 42" : "hide");
  }
  desk.Journal();
  EXPECT_EQ(desk.phone.IncomingCalls().OnClosePopup(), 0);
  EXPECT_THAT(desk.Journal(), ElementsAre("log: CAddin::OnClosePopup", "hide"));
}

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
  desk.state.cellDialLine = desk.state.caller.popupLine = 18;
  desk.Status(2, 3, 4);
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

TEST(Events, CellRegistrationLeavesARingingCallAlone) {
  CTelephoneDesk desk;
  desk.CallerId(1, "7");
  desk.records.cells.regInfo = 5;
  std::memcpy(desk.records.cells.names[0], "fourteen bytes", 14);
  std::memcpy(desk.records.cells.names[2], "\x01\xFF\0abc", 6);
  desk.phone.Events().OnEventGet(5104, 0);
  EXPECT_EQ(desk.state.caller.cidLine, 1);
  EXPECT_EQ(desk.state.cells.cellRegistered, 5);
  EXPECT_STREQ(desk.state.cells.names[0], "fourteen bytes");
  EXPECT_STREQ(desk.state.cells.names[2], "\x01\xFF");
}

TEST(StartUp, ResetsTheCountersAndTheDialBox) {
  CTelephoneDesk desk;
  desk.state.pendingClearLine = desk.state.cellDialLine = desk.state.lastDialTime = 17;
  desk.phone.Dialler().StoreDialText(L"42");
  desk.phone.ResetCounters(desk.tick - 40);
  desk.phone.ResetDial();
  EXPECT_EQ(desk.state.pendingClearLine + desk.state.cellDialLine + desk.state.lastDialTime, 0u);
  EXPECT_EQ(desk.state.lastLineClickTime, 40u);
  EXPECT_EQ(desk.phone.Dialler().DialText(), L"");
}

TEST(Events, WithoutASlotOrWithoutANameDoNothing) {
  CTelephoneDesk desk;
  const TelephoneState before = desk.state;
  for (const uint32_t event : {5101u, 5102u, 5103u, 0u, 4999u, 5002u, 5105u, 0xFFFFFFFFu}) {
    for (const uint32_t lineType : {0u, 3u, 16u, 21u, 255u, 0x101u})
      EXPECT_EQ(desk.phone.Events().OnEventGet(event, lineType), 0);
  }
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): nothing at all is written
  EXPECT_EQ(std::memcmp(&before, &desk.state, sizeof before), 0);
  EXPECT_THAT(desk.Deeds(), ElementsAre());
}

}  // namespace
}  // namespace quor
