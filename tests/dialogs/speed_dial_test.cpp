#include <gtest/gtest.h>

#include "dialogs/speed_dial_erase.h"
#include "dialogs/speed_dial_regist.h"
#include "resources/resource_ids.h"
#include "tests/dialogs/dialog_stage.h"

namespace quor {
namespace {

struct CStore final : ISpeedDialStore {
  void SetEntry(size_t index, const SpeedDialEntry& entry) override {
    if (refuses) throw 1;
    saved.emplace_back(index, entry);
  }
  void EraseEntry(size_t index) override {
    erased.push_back(index);
    locksDuringErasure = ModuleLockCount();
  }

  std::vector<std::pair<size_t, SpeedDialEntry>> saved;
  std::vector<size_t> erased;
  long locksDuringErasure = 0;
  bool refuses = false;
};

struct CMessages final : IMessagePopup {
  void ShowMessage(int stringId) override { shown.push_back(stringId); }
  std::vector<int> shown;
};

class SpeedDial : public testing::Test {
 protected:
  void Open(size_t index, const SpeedDialEntry& entry, const SpeedDialEntry& offered = {}) {
    m_regist.Open(m_stage.outlook, index, entry, offered);
    RunLoop();
  }
  void Write(int field, const std::wstring& text) {
    SetWindowTextW(GetDlgItem(VisibleDialog(), field), text.c_str());
  }
  void Save(const std::wstring& name, const std::wstring& number) {
    Write(IDC_SPEED_DIAL_NAME, name);
    Write(IDC_SPEED_DIAL_NUMBER, number);
    PressKey(VK_RETURN);
  }

  CDialogStage m_stage;
  CStore m_store;
  CMessages m_messages;
  CSpeedDialRegist m_regist{m_stage.host, m_store, m_messages};
  CSpeedDialErase m_erase{m_stage.host, m_store};
};

TEST_F(SpeedDial, KeepsNamesAsTypedAndOfNumbersWhatCanBeDialled) {
  const struct {
    SpeedDialEntry typed;
    SpeedDialEntry kept;
  } rows[] = {
      {{L"Smith", L"\x202a+1\x00a0\x2011 [800] 555.01/99\x202c"}, {L"Smith", L"18005550199"}},
      {{L"\x0416\x0430\t'%s'", std::wstring(24, L'9')},
       {L"\x0416\x0430\t'%s'", std::wstring(24, L'9')}},
      {{L"  ", L" *21# p 5"}, {L"*21#p5", L"*21#p5"}}};
  for (const auto& [typed, kept] : rows) {
    Open(7, {});
    Save(typed.name, L"55\x0416");
    EXPECT_EQ(m_messages.shown.back(), IDS_INVALID_CHARACTERS);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_SPEED_DIAL_NUMBER);
    Save(typed.name, typed.number);
    ASSERT_FALSE(m_store.saved.empty());
    EXPECT_EQ(m_store.saved.back(), std::pair(size_t{7}, kept));
    EXPECT_FALSE(m_regist.IsVisible());
  }
}

TEST_F(SpeedDial, OpenedForAnotherEntryShowsThatOne) {
  Open(1, {L"One", L"1"});
  Open(2, {L"\x0416", L"55-1"}, {L"Offered", L"2"});
  EXPECT_EQ(DialogsNamed(L"Speed dial").size(), 1u);
  EXPECT_EQ(TextOf(VisibleDialog(), IDC_SPEED_DIAL_NUMBER), L"55-1");
  PressKey(VK_RETURN);
  EXPECT_EQ(m_store.saved, (std::vector{std::pair(size_t{2}, SpeedDialEntry{L"\x0416", L"551"})}));

  m_erase.Open(m_stage.outlook, 3, {L"C", L"3"});
  m_erase.Open(m_stage.outlook, 4, {L"A & B", L"4"});
  RunLoop();
  EXPECT_EQ(TextOf(VisibleDialog(), IDC_ERASE_ENTRY), L"A & B  4");
  PressKey(VK_RETURN);
  EXPECT_EQ(m_store.erased, std::vector<size_t>{4});
  EXPECT_GT(m_store.locksDuringErasure, 0);  // held by the key's hook
}

TEST_F(SpeedDial, SurvivesARefusingStoreAndTheEndOfItsOwner) {
  m_store.refuses = true;
  Open(0, {L"One", L"1"});
  PressKey(VK_RETURN);
  EXPECT_NE(m_stage.lines.text.find("** Error : dialog message"), std::string::npos);
  Open(0, {L"One", L"1"});
  m_stage.CloseOutlook();
  EXPECT_FALSE(m_regist.IsWindow());
}

}  // namespace
}  // namespace quor
