#include "addin/user_interface.h"

#include "com/com_boundary.h"
#include "toolbar/shown_contact.h"

namespace quor {

CUserInterface::CUserInterface(CTelephone& telephone, COutlookSession& session, CSettings& settings,
                               CUserDialogs& dialogs, IMessageQueue& queue,
                               const CResourceLoader& resources, IEventOwner& owner,
                               CDiagnosticLog& log) noexcept
    : m_telephone(telephone),
      m_session(session),
      m_settings(settings),
      m_dialogs(dialogs),
      m_queue(queue),
      m_resources(resources),
      m_log(log),
      m_actions(telephone, settings.Values(), resources, *this),
      m_contactWindows(*this, m_actions, *this, resources, settings.Values().contactToolBar, owner,
                       log),
      m_toolbar(*this, m_actions, m_contactWindows, queue, resources, owner, log) {}

HRESULT CUserInterface::CreateMainToolbar() {
  return m_toolbar.Create(m_session.MainExplorer(), m_session.AppVersion(),
                          m_settings.Values().mainToolBar);
}

void CUserInterface::FillToolbar() {
  PutHistory();
  PutCallFromCellButton();
  m_telephone.CallerList().PutCallerList();
  PutSpeedDialButton();
}

void CUserInterface::OnListsChanged() noexcept {
  GuardCall(m_log, "lists", [this] {
    PutHistory();
    m_telephone.CallerList().PutCallerList();
    PutSpeedDialButton();
  });
}

void CUserInterface::OpenContactWindow(const CInspector& inspector) noexcept {
  m_contactWindows.Open(inspector, m_session.AppVersion());
}

bool CUserInterface::PostRefresh() noexcept {
  return m_queue.PostRequest(WindowRequest::Refresh, 0);
}

void CUserInterface::Refresh() noexcept {
  m_contactWindows.Refresh();
  m_toolbar.Ribbon().InvalidateDeferred();
}

void CUserInterface::SavePlaces() noexcept {
  m_toolbar.SavePlace(m_settings.Values().mainToolBar);
  m_contactWindows.SavePlace();
}

void CUserInterface::OnFolderSwitch() {
  m_actions.Clear();
  // First, because it invalidates the ribbon for everything below.
  SetToolBarState();
  SetDialText({});
  FillToolbar();
}

void CUserInterface::FollowSelection() {
  if (m_actions.OfferSelection()) m_toolbar.RefreshDialList();
}

SelectedContact CUserInterface::FindSelectedContact() {
  const CExplorer explorer = m_session.MainExplorer();
  return ReadSelectedContact(explorer, m_log);
}

void CUserInterface::DisconnectMainToolbar() noexcept {
  m_toolbar.SavePlace(m_settings.Values().mainToolBar);
  m_toolbar.Disconnect();
}

void CUserInterface::ReleaseMainToolbar() noexcept {
  DisconnectMainToolbar();
  m_toolbar.ReleaseBar();
}

void CUserInterface::SetToolBarState() {
  m_toolbar.SetToolBarState();
  m_contactWindows.Redraw();
}

void CUserInterface::RedrawLineButtons() {
  m_toolbar.Redraw();
  m_contactWindows.Redraw();
}

void CUserInterface::DisableControls() {
  m_toolbar.DisableControls();
  m_contactWindows.Disable();
}

CControlFaces CUserInterface::Faces() const {
  return CControlFaces(m_telephone.State(), m_settings.Values(), m_resources,
                       m_actions.Candidates());
}

}  // namespace quor
