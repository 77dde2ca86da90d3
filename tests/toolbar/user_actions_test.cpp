#include "toolbar/user_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/resource_ids.h"
#include "tests/telephone/telephone_desk.h"
#include "tests/toolbar/faces_fixture.h"

namespace quor {
namespace {

using testing::ElementsAre;

// A user in front of a telephone with one selected contact.
class CUserDesk final : private IActionWindows {
 public:
  explicit CUserDesk(int appVersion) : desk(appVersion) {}

  // What was sent to the base on Line1, for Line1 to be used again.
  std::string Sent() {
    const DialRecord request = std::exchange(desk.records.dial[0], {});
    return {request.number, request.numberLength};
  }
  int Opened() { return std::exchange(m_opened, 0); }
  std::wstring Label(int type, const std::wstring& number) const {
    return m_texts.Text(IDS_NUMBER_KIND + type) + L": " + number;
  }
  const std::wstring& Box() { return desk.phone.Dialler().BoxText(); }

  CTelephoneDesk desk;
  SelectedContact selected;

 private:
  SelectedContact FindSelectedContact() override { return selected; }
  void ShowWaitingNumber() override { ++m_opened; }
  void EditSpeedDial(size_t, const SpeedDialEntry&, const SpeedDialEntry&) override { ++m_opened; }
  void EraseSpeedDial(size_t, const SpeedDialEntry&) override { ++m_opened; }
  void OpenOptions() override { ++m_opened; }

  int m_opened = 0;
  CNumberedTexts m_texts;

 public:
  CUserActions actions{desk.phone, desk.configuration, m_texts, *this};
};

TEST(UserActions, DialTheSelectedContactsNumbersWithoutPunctuation) {
  CUserDesk user(kToolbarVersion);
  user.selected = {L"Lee, Anna", {{2, L"+49 (30) 555-0199"}, {7, L"n/a"}}};
  EXPECT_TRUE(user.actions.OfferSelection());
  EXPECT_FALSE(user.actions.OfferSelection());
  user.desk.SetStates(kStateTaken, 2, 2);
  user.actions.ChangeDialBox(user.Label(2, L"+49 (30) 555-0199"), 4);
  EXPECT_EQ(user.Sent(), "49305550199");
  // Nothing to dial: the dialler refuses the number as it is written.
  user.desk.Deeds();
  user.actions.ChangeDialBox(user.Label(7, L"n/a"), 5);
  EXPECT_THAT(user.desk.Deeds(), ElementsAre("message 1303"));
}

TEST(UserActions, KeepANumberForTheRibbonsLineButton) {
  CUserDesk user(kRibbonVersion);
  user.desk.SetStates(1, 1, 1);
  user.desk.configuration.callerLists = {{L"", L"", L"(01) 23"}, {L"", L"", L"withheld"}};
  user.desk.configuration.speedDials = {{L"Tom", L"4-5"}, {L"Empty", L""}};
  user.selected.numbers = {{10, L"6 7"}};
  user.actions.OfferSelection();

  const struct {
    const char* what;
    std::function<void()> act;
    std::wstring box;
    bool waits;
  } kRows[] = {
      {"a caller", [&] { user.actions.ClickCaller(0); }, L"0123", true},
      {"no number", [&] { user.actions.ClickCaller(1); }, L"", false},
      {"no such caller", [&] { user.actions.ClickCaller(2); }, L"", false},
      {"speed dial", [&] { user.actions.ClickSpeedDial(SpeedDialAction::Call, 0); }, L"45", true},
      {"without number", [&] { user.actions.ClickSpeedDial(SpeedDialAction::Call, 1); }, L"",
       false},
      {"beyond", [&] { user.actions.ClickSpeedDial(SpeedDialAction::Erase, 10); }, L"", false},
      {"candidate", [&] { user.actions.StoreDialText(user.Label(10, L"6 7")); }, L"67", false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.what);
    user.desk.phone.Dialler().StoreBoxText({});
    row.act();
    EXPECT_EQ(user.Box(), row.box);
    EXPECT_EQ(user.Opened(), row.waits ? 1 : 0);
  }
}

}  // namespace
}  // namespace quor
