#include <gtest/gtest.h>

#include "dialogs/about_dlg.h"
#include "dialogs/options_dialog.h"
#include "resources/resource_ids.h"
#include "tests/dialogs/dialog_stage.h"

namespace quor {
namespace {

class OptionsWindow : public testing::Test {
 protected:
  void Open() {
    m_dialog.Open(m_stage.outlook);
    RunLoop();
  }
  HWND Control(int id) { return FindControl(VisibleDialog(), id); }
  bool CanApply() { return IsWindowEnabled(Control(IDC_OPTIONS_APPLY)) != FALSE; }
  void Press(int id) {
    SendMessageW(Control(id), BM_CLICK, 0, 0);
    RunLoop();
  }

  CDialogStage m_stage;
  COptionsDesk m_desk;
  COptionsDialog m_dialog{m_stage.host, m_desk};
};

TEST_F(OptionsWindow, CanApplyOnlyWhatDiffers) {
  Open();
  Choose(Control(IDC_OPTIONS_LANGUAGE), kFrench);
  EXPECT_TRUE(CanApply());
  Choose(Control(IDC_OPTIONS_LANGUAGE), kEnglish);
  EXPECT_FALSE(CanApply());
  Choose(Control(IDC_OPTIONS_POP_UP + 5), 2);
  SetFocus(Control(IDC_OPTIONS_APPLY));
  Press(IDC_OPTIONS_APPLY);
  EXPECT_EQ(m_desk.applied, (std::vector<OptionValues>{{kEnglish, {1, 1, 1, 1, 1, 0}}}));
  EXPECT_FALSE(CanApply());
  EXPECT_TRUE(IsWindowEnabled(GetFocus()));
  Press(IDOK);
  EXPECT_EQ(m_desk.applied.size(), 1u);
  EXPECT_FALSE(m_dialog.IsVisible());
}

TEST_F(OptionsWindow, ValuesThatAreNoChoiceStay) {
  m_desk.stored = {-1, {7, -3, 1, 1, 1, 1}};
  Open();
  EXPECT_EQ(TextOf(Control(IDC_OPTIONS_POP_UP)), L"Contact list");
  EXPECT_FALSE(CanApply());
  Choose(Control(IDC_OPTIONS_POP_UP + 2), 2);
  Press(IDOK);
  EXPECT_EQ(m_desk.applied, (std::vector<OptionValues>{{-1, {7, -3, 0, 1, 1, 1}}}));
}

TEST_F(OptionsWindow, StaysOpenWhenNothingCouldBeKept) {
  m_desk.refuses = true;
  Open();
  Choose(Control(IDC_OPTIONS_LANGUAGE), kFrench);
  Press(IDOK);
  EXPECT_TRUE(m_dialog.IsVisible());
  EXPECT_TRUE(CanApply());
  m_stage.CloseOutlook();
  EXPECT_FALSE(m_dialog.IsWindow());
}

// The panel inside the window takes part in its keyboard use.
TEST_F(OptionsWindow, IsUsedWithTheKeyboardAlone) {
  Open();
  EXPECT_EQ(GetFocus(), Control(IDC_OPTIONS_LANGUAGE));
  SetFocus(Control(IDC_OPTIONS_JOURNAL));
  PressKey(VK_TAB);
  PressKey(VK_RETURN);
  EXPECT_EQ(m_desk.abouts, std::vector<HWND>{VisibleDialog()});
  PressKey(VK_TAB);
  EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK);
}

struct CNoActions final : IAboutActions {
  void SwitchLog(bool) override {}
  void OpenLogFolder() override {}
};

TEST(AboutBox, SaysWhatKeepsTheSettingsAndTheLibraryAway) {
  CDialogStage stage;
  CNoActions actions;
  CAboutDlg about(stage.host, actions);
  const auto trouble = [&](const AboutFacts& facts) {
    about.Open(stage.outlook, facts);
    return TextOf(VisibleDialog(), IDC_ABOUT_CONFIGURATION_STATE);
  };
  about.Open(nullptr, {});
  AboutFacts facts;
  facts.configurationPath = L"C:\\vex_cfg.xml";
  EXPECT_EQ(trouble(facts), L"");
  facts.configurationIsUnreadable = true;
  EXPECT_EQ(trouble(facts).find(L"The file cannot be read."), 0u);
  facts.configurationIsUnsaved = true;
  EXPECT_EQ(trouble(facts).find(L"The file could not be written"), 0u);
  facts.profileIsOutsideCodePage = true;
  EXPECT_EQ(trouble(facts).find(L"The profile\x2019s path"), 0u);

  facts.library = UsbLibraryState::OtherBitness;
  trouble(facts);
  EXPECT_EQ(GetWindow(VisibleDialog(), GW_OWNER), stage.outlook);
  const std::wstring wanted = sizeof(void*) == 8 ? L"64-bit" : L"32-bit";
  EXPECT_EQ(TextOf(VisibleDialog(), IDC_ABOUT_BASE),
            L"Not connected: SiUSBXp.dll is not " + wanted);
}

}  // namespace
}  // namespace quor
