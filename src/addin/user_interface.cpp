#include "addin/user_interface.h"

#include "com/com_boundary.h"
#include "toolbar/shown_contact.h"

namespace quor {

CUserInterface::CUserInterface(CTelephone& telephone, CTelephoneControls& controls,
                               COutlookSession& session, CSettings& settings, CUserDialogs& dialogs,
                               const CResourceLoader& resources, CDiagnosticLog& log) noexcept
    : m_telephone(telephone),
      m_controls(controls),
      m_session(session),
      m_settings(settings),
      m_dialogs(dialogs),
      m_resources(resources),
      m_log(log),
      m_actions(telephone, settings.Values(), resources, *this) {}

void CUserInterface::FillToolbar() {
  m_controls.PutHistory();
  m_controls.PutCallFromCellButton();
  m_telephone.CallerList().PutCallerList();
  m_controls.PutSpeedDialButton();
}

void CUserInterface::OnListsChanged() noexcept {
  GuardCall(m_log, "lists", [this] {
    m_controls.PutHistory();
    m_telephone.CallerList().PutCallerList();
    m_controls.PutSpeedDialButton();
  });
}

void CUserInterface::OnFolderSwitch() {
  m_actions.Clear();
  // First, because it invalidates the ribbon for everything below.
  m_controls.SetToolBarState();
  m_controls.SetDialText({});
  FillToolbar();
}

void CUserInterface::FollowSelection() {
  if (m_actions.OfferSelection()) m_controls.ShowDialList();
}

SelectedContact CUserInterface::FindSelectedContact() {
  const CExplorer explorer = m_session.MainExplorer();
  return ReadSelectedContact(explorer, m_log);
}

CControlFaces CUserInterface::Faces() const {
  return {m_telephone.State(), m_settings.Values(), m_resources, m_actions.Candidates()};
}

}  // namespace quor
