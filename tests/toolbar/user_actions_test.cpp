#include "toolbar/user_actions.h"

#include <gtest/gtest.h>

#include "resources/resource_ids.h"
#include "tests/telephone/telephone_desk.h"
#include "tests/toolbar/faces_fixture.h"

namespace quor {
namespace {

// A user in front of a telephone with one selected contact.
class CUserDesk final : private IActionWindows {
 public:
  int Opened() { return std::exchange(m_opened, 0); }

  CTelephoneDesk desk{kRibbonVersion};
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

TEST(UserActions, KeepANumberForTheRibbonsLineButton) {
  CUserDesk user;
  user.desk.SetStates(1, 1, 1);
  user.desk.configuration.callerLists = {{L"", L"", L"(01) 23"}, {L"", L"", L"withheld"}};
  user.desk.configuration.speedDials = {{L"Tom", L"4-5"}, {L"Empty", L""}};
  user.selected.numbers = {{10, L"6 7"}};
  user.actions.OfferSelection();
  const std::wstring label = CNumberedTexts().Text(IDS_NUMBER_KIND + 10) + L": 6 7";

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
      {"candidate", [&] { user.actions.StoreDialText(label); }, L"67", false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.what);
    user.desk.phone.Dialler().StoreDialText({});
    row.act();
    EXPECT_EQ(user.desk.phone.Dialler().DialText(), row.box);
    EXPECT_EQ(user.Opened(), row.waits ? 1 : 0);
  }
}

}  // namespace
}  // namespace quor
