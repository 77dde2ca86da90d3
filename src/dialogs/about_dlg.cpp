#include "dialogs/about_dlg.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"

namespace quor {

CAboutDlg::CAboutDlg(const CResourceLoader& resources, IAboutActions& actions,
                     CDiagnosticLog& log) noexcept
    : CModelessDialog(resources, log, IDD_ABOUT), m_actions(actions) {}

void CAboutDlg::Open(HWND owner, const AboutFacts& facts) noexcept {
  GuardCall(m_log, "about box", [&] {
    // Made for another owner it would open behind this one.
    if (IsWindow() && GetWindow(Window(), GW_OWNER) != owner) Destroy();
    RequireWindow(owner);
    Fill(facts);
    ShowInFront(owner, CentreOver);
    // Windows has put the caret behind the path that the keyboard came to first.
    SendMessageW(Control(IDC_ABOUT_CONFIGURATION), EM_SETSEL, 0, 0);
  });
}

void CAboutDlg::Fill(const AboutFacts& facts) {
  const bool is64Bit = sizeof(void*) == 8;
  const auto show = [this](int id, const std::wstring& text) {
    SetWindowTextW(Control(id), text.c_str());
  };
  show(IDC_ABOUT_VERSION, facts.version);
  show(IDC_ABOUT_BUILD, facts.build);
  show(IDC_ABOUT_ARCHITECTURE, m_resources.Text(is64Bit ? IDS_64_BIT : IDS_32_BIT));
  show(IDC_ABOUT_BASE,
       m_resources.Text(facts.baseIsConnected ? IDS_BASE_CONNECTED : IDS_BASE_NOT_CONNECTED));
  show(IDC_ABOUT_CONFIGURATION, facts.configurationPath);
  show(IDC_ABOUT_LOG, facts.logPath);
  EnableWindow(Control(IDC_ABOUT_OPEN_FOLDER), !facts.logPath.empty());
  CheckDlgButton(Window(), IDC_ABOUT_WRITE_LOG, facts.logIsOn ? BST_CHECKED : BST_UNCHECKED);
}

void CAboutDlg::OnButton(int id) {
  switch (id) {
    case IDC_ABOUT_WRITE_LOG:
      m_actions.SwitchLog(IsDlgButtonChecked(Window(), id) == BST_CHECKED);
      break;
    case IDC_ABOUT_OPEN_FOLDER:
      m_actions.OpenLogFolder();
      break;
    default:
      Hide();
      break;
  }
}

}  // namespace quor
