#include <utility>

#include "addin/addin.h"
#include "resources/resource_ids.h"

namespace quor {
namespace {

// Milliseconds; longer than the pause between two repetitions of a held arrow key.
constexpr UINT kSelectionRest = 200;
constexpr UINT kJournalRest = 1000;

}  // namespace

void CAddin::OnDeviceEvent(DeviceEvent event, uint8_t lineType) {
  m_telephone.Events().OnEventGet(static_cast<uint32_t>(event), lineType);
  if (m_journal.HasCalls()) m_window.StartTimer(kJournalTimer, kJournalRest);
}

void CAddin::OnRequest(WindowRequest request, uint32_t parameter) {
  switch (request) {
    case WindowRequest::SetBarState:
      m_telephone.Refresh().OnSetBarState(parameter);
      break;
    case WindowRequest::ClearDial:
      m_telephone.Dialler().OnClearDial();
      break;
    case WindowRequest::Refresh:
      m_controls.Refresh();
      break;
    case WindowRequest::CloseLoading:
      m_popUps.HideLoading();
      break;
    case WindowRequest::StartupRequest:
      m_requests.OnStartupRequest();
      break;
    case WindowRequest::CallRequest:
      m_requests.OnCallRequest(parameter);
      break;
    case WindowRequest::OnHookRequest:
      m_requests.OnOnHookRequest(parameter);
      break;
  }
}

void CAddin::OnTimer(UINT_PTR timer) {
  if (timer == kDeferredTimer) BuildContacts();
  if (timer == kDevicePollTimer) {
    const uint32_t began = m_clock.TickMilliseconds();
    m_link.ReceiveFrame();
    m_link.NotePoll(began, m_clock.TickMilliseconds());
  }
  if (timer == kJournalTimer) WriteJournal();
  if (timer == kSelectionTimer) {
    m_window.StopTimer(kSelectionTimer);
    m_ui.FollowSelection();
  }
}

// Writes one entry per tick, and none while a call rings.
void CAddin::WriteJournal() {
  if (m_calls.IsRinging()) return;
  m_window.StopTimer(kJournalTimer);
  m_journal.WriteOne();
  if (m_journal.HasCalls()) m_window.StartTimer(kJournalTimer, kJournalRest);
}

// Outlook closes: ends the running calls and writes all entries now.
void CAddin::EndCalls() {
  m_calls.EndAll();
  m_journal.WriteAll();
}

// The first tick starts reading the contacts, later ones continue. Windows delivers timer messages
// after everything else in the queue: input, painting and the base's reports.
void CAddin::BuildContacts() {
  m_window.StopTimer(kDeferredTimer);
  // The add-in was disconnected while this tick was pending.
  if (m_stopRequested) return;
  m_sliceClock.Start();
  if (std::exchange(m_buildDue, false)) {
    m_folders.CreateContact();
  } else {
    m_folders.ContinueScan();
  }
  if (m_folders.IsScanning() && !m_window.StartTimer(kDeferredTimer, 0)) m_folders.FinishScan();
}

bool CAddin::PostCloseLoading() noexcept {
  return m_window.PostRequest(WindowRequest::CloseLoading, 0);
}

void CAddin::OnNewExplorer(IDispatch* explorer) {
  m_log.Write("CAddin::OnNewExplorer\n");
  QueryObject<CExplorer>(explorer);
}

void CAddin::OnNewInspector(IDispatch* inspector) {
  m_log.Write("CAddin::OnNewInspector\n");
  if (!HasFinished()) return;
  const auto opened = QueryObject<CInspector>(inspector);
  if (opened) m_controls.ContactWindows().Open(opened, m_session.AppVersion());
}

void CAddin::OnOptionsPagesAdd(IDispatch* pages) {
  m_log.Write("CAddin::OnOptionsPagesAdd\n");
  const auto outlookPages = QueryObject<CPropertyPages>(pages);
  if (!outlookPages) return;
  IDispatchPtr page;
  const HRESULT result = CreateOptionsPage(IID_IDispatch, reinterpret_cast<void**>(&page));
  if (FAILED(result)) _com_issue_error(result);
  outlookPages.Add(page, m_resources.Text(IDS_PRODUCT_NAME));
}

void CAddin::OnSelectionChange() {
  m_log.Write("CAddin::OnSelectionChange\n");
  // Do not read the contact yet: moving through a list with the arrow keys must cost nothing.
  if (HasFinished() && !m_explorerClosed) m_window.StartTimer(kSelectionTimer, kSelectionRest);
}

void CAddin::OnFolderSwitch() {
  m_log.Write("CAddin::OnFolderSwitch\n");
  const CSessionClock::CSpan span(m_sessionClock, CSessionClock::Phase::FolderSwitch);
  if (HasFinished()) m_ui.OnFolderSwitch();
}

// Events before OnConnection finishes, or after it failed, are logged and ignored.
bool CAddin::HasFinished() noexcept {
  if (!m_finished) m_log.Write("Not finished OnConnection!\n");
  return m_finished;
}

void CAddin::OnDeleteItemAdd(IDispatch* item) {
  m_folders.OnDeleteItemAdd(item);
}

void CAddin::OnDeleteFolderAdd(IDispatch* folder) {
  m_folders.OnDeleteFolderAdd(folder);
}

void CAddin::OnDeleteFolderRemove() {
  m_folders.OnDeleteFolderRemove(m_session.DeletedItems());
}

}  // namespace quor
