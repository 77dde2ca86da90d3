#include "addin/addin.h"
#include "com/com_boundary.h"

namespace quor {

void CAddin::OnQuit() {
  m_log.Write("CAddin::OnQuit\n");
  m_quitting = true;
  Quit();
  // Write now: Outlook 2010 and later makes no further call.
  m_sessionClock.Write(m_settings.Path());
}

void CAddin::Quit() {
  const CSessionClock::CSpan span(m_sessionClock, CSessionClock::Phase::Shutdown);
  m_link.StopWatchThread();
  m_controls.SavePlaces();
  m_settings.Save();
  m_folders.StopScan();
  EndCalls();
  // Pop-ups created again after the main window had closed.
  m_popUps.Destroy();
}

void CAddin::OnCloseExplorer() {
  m_log.Write("CAddin::OnCloseExplorer\n");
  const CSessionClock::CSpan span(m_sessionClock, CSessionClock::Phase::Shutdown);
  m_explorerClosed = true;
  m_link.StopWatchThread();
  m_popUps.OnMainWindowClosed();
  m_dialogs.Destroy();
  m_controls.ReleaseBar();
  // A start in progress notices that the explorer has closed and releases it.
  if (!HasFinished() && m_starting) return;
  ReleaseExplorer();
  m_controls.ContactWindows().CloseAll();
  if (m_finished) StopScanWithLastExplorer();
}

// While another main window is open, callers must still be found.
void CAddin::StopScanWithLastExplorer() noexcept {
  if (!m_buildDue && !m_folders.IsScanning()) return;
  int32_t open = 0;
  GuardCall(m_log, "counting the main windows", [&] { open = m_session.CountExplorers(); });
  if (open > 1) return;  // the closing one counts, too
  m_stopRequested = true;
  m_folders.StopScan();
}

void CAddin::ReleaseExplorer() noexcept {
  m_controls.ReleaseBar();
  m_session.DisconnectExplorer();
}

void CAddin::Disconnect(ext_DisconnectMode mode) {
  const CSessionClock::CSpan span(m_sessionClock, CSessionClock::Phase::Shutdown);
  EndCalls();
  ReleaseOutlook(mode);
  m_settings.Save();
  m_language.Leave();
  m_log.Write("CAddin::OnDisconnection finish\n");
}

void CAddin::ReleaseOutlook(ext_DisconnectMode mode) noexcept {
  m_link.StopWatchThread();
  // Do not wait for a running scan: it runs on this thread. If the disconnection happens inside a
  // slice, the scan ends after this call returns to it.
  m_stopRequested = true;
  m_folders.StopScan();
  DisconnectEvents();
  m_controls.DisconnectBar();
  if (mode == ext_dm_UserClosed) {
    GuardCall(m_log, "deleting the command bar", [this] { m_controls.DeleteBar(); });
  }
  m_popUps.Destroy();
  m_dialogs.Destroy();
  m_controls.ReleaseBar();
  m_controls.ReleaseRibbon();
  m_session.Release();
  m_finished = false;
}

void CAddin::DisconnectEvents() noexcept {
  m_session.Disconnect();
  m_folders.UnregisterAll();
  m_controls.ContactWindows().CloseAll();
}

}  // namespace quor
