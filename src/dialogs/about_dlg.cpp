#include "dialogs/about_dlg.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"
#include "text/format.h"

namespace quor {
CAboutDlg::CAboutDlg(const DialogHost& host, IAboutActions& actions) noexcept
    : CModelessDialog(host, IDD_ABOUT), m_actions(actions) {}

void CAboutDlg::Open(HWND owner, const AboutFacts& facts) noexcept {
  GuardCall(m_log, "about box", [&] {
    // Recreate the window for another owner; otherwise it would open behind it.
    if (IsWindow() && GetWindow(Window(), GW_OWNER) != owner) Destroy();
    RequireWindow(owner);
    Fill(facts);
    ShowInFront(owner, CentreOver);
    // Windows puts the caret at the end of the first edit field; move it to the start.
    SendMessageW(Control(IDC_ABOUT_CONFIGURATION), EM_SETSEL, 0, 0);
  });
}

void CAboutDlg::Fill(const AboutFacts& facts) {
  const auto show = [this](int id, const std::wstring& text) {
    SetWindowTextW(Control(id), text.c_str());
  };
  show(IDC_ABOUT_VERSION, facts.version);
  show(IDC_ABOUT_BUILD, facts.build);
  show(IDC_ABOUT_ARCHITECTURE, Architecture());
  show(IDC_ABOUT_BASE, BaseText(facts));
  show(IDC_ABOUT_LINK, LinkText(facts));
  show(IDC_ABOUT_CONTACTS, ContactsText(facts));
  show(IDC_ABOUT_CONFIGURATION, facts.configurationPath);
  const std::wstring trouble = ConfigurationText(facts);
  show(IDC_ABOUT_CONFIGURATION_STATE, trouble);
  ShowWindow(Control(IDC_ABOUT_CONFIGURATION_STATE), trouble.empty() ? SW_HIDE : SW_SHOW);
  show(IDC_ABOUT_LOG, facts.logPath);
  EnableWindow(Control(IDC_ABOUT_OPEN_FOLDER), !facts.logPath.empty());
  CheckDlgButton(Window(), IDC_ABOUT_WRITE_LOG, facts.logIsOn ? BST_CHECKED : BST_UNCHECKED);
}

std::wstring CAboutDlg::Architecture() const {
  return m_resources.Text(sizeof(void*) == 8 ? IDS_64_BIT : IDS_32_BIT);
}

std::wstring CAboutDlg::BaseText(const AboutFacts& facts) const {
  if (facts.baseIsConnected) return m_resources.Text(IDS_BASE_CONNECTED);
  switch (facts.library) {
    case UsbLibraryState::Missing:
      return m_resources.Text(IDS_BASE_NO_LIBRARY);
    case UsbLibraryState::OtherBitness:
      return InsertTexts(m_resources.Text(IDS_BASE_OTHER_BITNESS), {Architecture()});
    case UsbLibraryState::Incomplete:
      return InsertTexts(m_resources.Text(IDS_BASE_NO_ORDINAL),
                         {DecimalText(facts.missingOrdinal)});
    default:
      return m_resources.Text(IDS_BASE_NOT_CONNECTED);
  }
}

std::wstring CAboutDlg::ContactsText(const AboutFacts& facts) const {
  if (facts.contactsAreBeingRead) return m_resources.Text(IDS_CONTACTS_READING);
  return InsertTexts(
      m_resources.Text(facts.contactsWereLeftOut ? IDS_CONTACTS_LIMIT : IDS_CONTACTS_READ),
      {DecimalText(facts.contacts), DecimalText(facts.items)});
}

std::wstring CAboutDlg::ConfigurationText(const AboutFacts& facts) const {
  if (facts.profileIsOutsideCodePage) return m_resources.Text(IDS_CONFIGURATION_CODE_PAGE);
  if (facts.configurationPath.empty()) return m_resources.Text(IDS_CONFIGURATION_NO_FOLDER);
  if (facts.configurationIsUnsaved) return m_resources.Text(IDS_CONFIGURATION_UNSAVED);
  if (facts.configurationIsUnreadable) return m_resources.Text(IDS_CONFIGURATION_UNREADABLE);
  return {};
}

std::wstring CAboutDlg::LinkText(const AboutFacts& facts) const {
  const LinkHealth& link = facts.link;
  const uint32_t reconnections = link.connections > 0 ? link.connections - 1 : 0;
  std::wstring counts = InsertTexts(
      m_resources.Text(IDS_LINK_HEALTH),
      {DecimalText(link.framesRead), DecimalText(link.badStartBytes),
       DecimalText(link.unknownTypes), DecimalText(link.badDelimiters), DecimalText(link.overruns),
       DecimalText(reconnections), DecimalText(link.longestPoll)});
  if (facts.connectedSince.empty()) return counts;
  return InsertTexts(m_resources.Text(IDS_LINK_SINCE), {facts.connectedSince}) + counts;
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
