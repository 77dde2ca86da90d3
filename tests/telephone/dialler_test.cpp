#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "telephone_desk.h"

namespace quor {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

// Takes Line1, which then dials.
void Hold(CTelephoneDesk& desk, uint8_t lineType = 1) {
  desk.SetStates(lineType == 1 ? 5 : 2, lineType == 2 ? 5 : 2, lineType >= 17 ? 5 : 2);
  desk.state.cellDialLine = lineType >= 17 ? lineType : 0;
}

std::string Sent(const CTelephoneDesk& desk, int slot = 0) {
  const DialRecord& request = desk.records.dial[static_cast<size_t>(slot)];
  return {request.number, request.numberLength};
}

TEST(Dialling, NumbersSentAndRefused) {
  const struct {
    std::wstring typed;
    const char* sent;
    const char* message;
  } kRows[] = {
      {L"5551234", "5551234", nullptr},
      {L"12p34f", "12P34F", nullptr},
      {L"*21#F", "*21#F", nullptr},
      {L"123456789012345678901234", "123456789012345678901234", nullptr},
      {L"1234567890123456789012345", "", "message 1304"},
      {L"1234567890-1234567890-123456", "", "message 1304"},
      {std::wstring(300, L'1'), "", "message 1304"},
      {L"123-4567", "", "message 1303"},
      {L"+49 30", "", "message 1303"},
      {L"12a", "", "message 1303"},
      {L" ", "", "message 1303"},
      {std::wstring(L"12\0"
                    L"34",
                    5),
       "", "message 1303"},
      {std::wstring(1, L'\0'), "", "message 1303"},
      {L"12\u20AC\u0416", "", "message 1303"},
      {L"\uFF11\uFF12", "", "message 1303"},  // full-width digits
  };
  for (const auto& row : kRows) {
    CTelephoneDesk desk;
    Hold(desk);
    EXPECT_EQ(desk.phone.Dialler().DialCall(0, row.typed), row.message == nullptr) << row.sent;
    EXPECT_EQ(Sent(desk), row.sent);
    EXPECT_EQ(desk.state.pendingClearLine, row.message ? 0u : 1u);
    EXPECT_EQ(desk.configuration.histories.size(), row.message ? 0u : 1u);
    if (row.message) {
      EXPECT_THAT(desk.Deeds(), ElementsAre(row.message));
    }
  }
}

TEST(Dialling, AnEmptyBoxOfTheRibbonIsAMessage) {
  CTelephoneDesk desk(kRibbonVersion);
  desk.SetStates(1, 1, 1);
  desk.state.cellDialLine = 18;
  EXPECT_FALSE(desk.phone.Lines().Click(1));
  EXPECT_EQ(desk.state.cellDialLine, 0u) << "a failed dial waits for no cell";
  EXPECT_THAT(desk.Deeds(), ElementsAre("message 1304"));
}

TEST(Dialling, TakesTheHeldLineAndNoOther) {
  for (const uint8_t lineType : Bytes{1, 2, 17, 20}) {
    CTelephoneDesk desk;
    Hold(desk, lineType);
    EXPECT_TRUE(desk.phone.Dialler().DialUSB("42"));
    EXPECT_EQ(Sent(desk, SlotFromLineType(lineType)), "42");
    EXPECT_THAT(desk.Deeds(), ElementsAre("post 11 " + std::to_string(lineType)));
  }
  CTelephoneDesk desk;
  desk.SetStates(1, 1, 1);
  EXPECT_FALSE(desk.phone.Dialler().DialCall(0, L"42"));
  EXPECT_EQ(desk.state.lastDialTime, desk.tick);
  Hold(desk, 17);
  desk.state.cellDialLine = 0;
  EXPECT_FALSE(desk.phone.Dialler().DialUSB("42")) << "the cell side held by no cell";
  EXPECT_THAT(desk.Deeds(), ElementsAre("find unchecked 42"));
}

TEST(Dialling, LogsAndDoesInThisOrder) {
  CTelephoneDesk desk;
  Hold(desk);
  desk.found["42P"] = {L"Doe, J\u00F6hn", L"42 p"};
  desk.phone.Dialler().OnChangeComboBox(L"42p", 0);
  EXPECT_THAT(desk.Journal(),
              ElementsAre("log: CAddin::OnChangeComboBox", "log: CAddin::DialCall",
                          "find unchecked 42P", "log: CAddin::DialUSB", "post 11 1", "history",
                          "box '42p'", "log: CAddin::Dial Clear Set", "save"));
  EXPECT_THAT(desk.configuration.histories,
              ElementsAre(CallEntry{L"42p", L"Doe, J\u00F6hn", L"42P"}));

  desk.postsFail = true;
  EXPECT_FALSE(desk.phone.Dialler().DialCall(0, L"7"));
  EXPECT_EQ(desk.configuration.histories.size(), 1u);
}

TEST(DialList, NewestFirstTwentyAtMostEachNumberOnce) {
  CTelephoneDesk desk;
  Hold(desk);
  CDialler& dialler = desk.phone.Dialler();
  const std::vector<CallEntry>& list = desk.configuration.histories;
  for (int i = 1; i <= 20; ++i)
    dialler.DialCall(0, std::to_wstring(i));
  EXPECT_EQ(list.size(), 20u);
  dialler.DialCall(0, L"5");
  EXPECT_EQ(list.size(), 20u);
  EXPECT_EQ(list.front().number, L"5");
  EXPECT_EQ(list.back().number, L"1") << "dialling a listed number pushes nothing out";
  dialler.DialCall(0, L"21");
  EXPECT_EQ(list.size(), 20u);
  EXPECT_EQ(list.back().number, L"2");
  desk.configuration.histories.resize(30, {L"x", L"", L"9"});
  dialler.DialCall(0, L"22");
  EXPECT_EQ(list.size(), 20u) << "also when the file held more";
}

TEST(DialList, APickedEntryShowsItsTextAndDialsItsNumber) {
  CTelephoneDesk desk;
  Hold(desk);
  desk.configuration.histories = {{L"Office", L"", L"11"}, {L"Home", L"", L"22f"}};
  EXPECT_TRUE(desk.phone.Dialler().DialCall(2, L"Home"));
  EXPECT_EQ(Sent(desk), "22F");
  EXPECT_THAT(desk.Deeds(), Contains("box 'Home'"));
  EXPECT_EQ(desk.configuration.histories.front(), (CallEntry{L"Home", L"", L"22F"}));

  // An index outside the list counts as typed.
  for (const int index : {-1, 4, 1000})
    EXPECT_FALSE(desk.phone.Dialler().DialCall(index, L"Home"));
  EXPECT_TRUE(desk.phone.Dialler().DialCall(4, L"33"));
  EXPECT_EQ(Sent(desk), "33");
  desk.configuration.histories.front().number = L"1-2";
  EXPECT_FALSE(desk.phone.Dialler().DialCall(1, L"33")) << "a hand-edited file is checked too";
  desk.configuration.histories.front().number = L"";
  desk.Journal();
  EXPECT_TRUE(desk.phone.Dialler().DialCall(1, L"33"));
  EXPECT_EQ(desk.Deeds().front(), "post 11 1") << "an empty number passes and is nobody's";
}

TEST(Ribbon, NumberFirstThenTheLine) {
  CTelephoneDesk desk(kRibbonVersion);
  desk.SetStates(1, 1, 1);
  desk.configuration.histories = {{L"Office", L"", L"11"}};
  desk.phone.Dialler().StoreBoxText(L"Office");
  // The list changes after the text was picked.
  desk.configuration.histories.insert(desk.configuration.histories.begin(), {L"9", L"", L"9"});
  EXPECT_TRUE(desk.phone.Lines().Click(19));
  EXPECT_EQ(Sent(desk, 4), "11");
  EXPECT_EQ(desk.state.cellDialLine, 19u);
  EXPECT_EQ(desk.state.pendingClearLine, 19u);
  EXPECT_THAT(desk.Deeds(), Not(Contains("history")));
  EXPECT_EQ(desk.phone.Dialler().BoxText(), L"Office");
}

TEST(Ribbon, ALineDialsAnotherNumberThanTheBoxHolds) {
  CTelephoneDesk desk(kRibbonVersion);
  desk.SetStates(3, 1, 1);
  desk.state.pendingClearLine = 1;
  desk.phone.Dialler().StoreBoxText(L"42");
  CLineControl& lines = desk.phone.Lines();
  EXPECT_FALSE(lines.DialsAtOnce(1));
  EXPECT_FALSE(lines.DialOnLine(1, L"7")) << "in a call since it was clicked";
  EXPECT_FALSE(lines.DialOnLine(18, L"ask Mary"));
  EXPECT_THAT(desk.Deeds(), ElementsAre("message 1303"));
  EXPECT_EQ(desk.state.pendingClearLine, 1u);
  EXPECT_EQ(desk.state.cellDialLine, 0u);
  EXPECT_EQ(desk.phone.Dialler().BoxText(), L"42");

  EXPECT_TRUE(lines.DialOnLine(18, L"7"));
  EXPECT_EQ(Sent(desk, 3), "7");
  EXPECT_EQ(desk.state.cellDialLine, 18u);
  EXPECT_EQ(desk.phone.Dialler().BoxText(), L"7");
  desk.phone.SetAppVersion(kToolbarVersion);
  EXPECT_FALSE(lines.DialsAtOnce(2)) << "a line is taken first";
}

TEST(ClearingTheBox, IsAskedForOnceAndDoneAsConfigured) {
  CTelephoneDesk desk;
  Hold(desk);
  desk.phone.Dialler().DialCall(0, L"42");
  desk.Status(3, 2, 2);
  desk.Journal();
  desk.Status(1, 1, 1);
  EXPECT_THAT(desk.Deeds(), Contains("post 1 0"));
  desk.Status(1, 1, 1);
  EXPECT_THAT(desk.Deeds(), Not(Contains("post 1 0")));

  EXPECT_EQ(desk.phone.Dialler().BoxText(), L"42");
  desk.Journal();
  desk.phone.Dialler().OnClearDial();
  EXPECT_THAT(desk.Journal(),
              ElementsAre("log: CAddin::OnClearDial", "log: CAddin::ClearDialNumber", "box ''"));
  EXPECT_EQ(desk.phone.Dialler().BoxText(), L"");
  desk.configuration.dialClear = 0;
  desk.phone.Dialler().OnClearDial();
  EXPECT_THAT(desk.Journal(), ElementsAre("log: CAddin::OnClearDial"));
}

}  // namespace
}  // namespace quor
