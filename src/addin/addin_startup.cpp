#include "addin/addin.h"

// commctrl.h requires windows.h first.
#include <commctrl.h>

#include "settings/configuration_path.h"

namespace quor {
namespace {

// Classes of common controls used by the windows, initialised one after the other.
constexpr DWORD kInternetClasses = 0x800;
constexpr DWORD kTabClasses = 0x8;

void InitialiseCommonControls() {
  for (const DWORD classes : {kInternetClasses, kTabClasses}) {
    const INITCOMMONCONTROLSEX request = {sizeof request, classes};
    InitCommonControlsEx(&request);
  }
}

}  // namespace

// Any call into Outlook may pump messages and handle a disconnection or the end of Outlook. Acquire
// nothing after that.
bool CAddin::IsStartStopped(unsigned connection) const noexcept {
  return IsShuttingDown() || connection != m_connection;
}

HRESULT CAddin::Start(IDispatch* application, unsigned connection) {
  m_disconnected = false;
  m_quitting = false;
  m_explorerClosed = false;
  m_stopRequested = false;
  m_finished = false;
  m_starting = true;
  LoadConfiguration();
  m_session.Release();
  InitialiseCommonControls();

  if (IsStartStopped(connection)) return S_FALSE;
  m_session.Attach(application);
  if (IsStartStopped(connection)) return S_FALSE;
  m_telephone.SetAppVersion(m_session.AppVersion());
  if (!m_session.ConnectInspectors() || IsStartStopped(connection)) return S_FALSE;
  if (!m_session.ConnectExplorers() || IsStartStopped(connection)) return S_FALSE;
  const HRESULT connected = m_session.ConnectApplication();
  if (IsStartStopped(connection)) return S_FALSE;
  // The only failure that is returned to Outlook.
  if (FAILED(connected)) return connected;

  const bool languageChosen = m_settings.Values().languageNo >= 0;
  if (languageChosen && !CreateMainToolbar("Failed creating Main ToolBar(m_langno >= 0)\n")) {
    return S_FALSE;
  }
  if (IsStartStopped(connection)) return S_FALSE;
  m_session.ReadStores();
  if (IsStartStopped(connection)) return S_FALSE;
  if (!m_session.ConnectDeletedItems() || IsStartStopped(connection)) return S_FALSE;
  if (!StartController() || IsExplorerClosed()) return S_FALSE;
  return FinishStart(connection);
}

bool CAddin::IsExplorerClosed() noexcept {
  if (m_explorerClosed) m_log.Write("Explorer is close\n");
  return m_explorerClosed;
}

void CAddin::LoadConfiguration() {
  m_settings.Start(PrepareConfigurationPath(m_log));
  m_telCtrl.SetLogFlag(m_settings.Values().debugLog != 0);
  const int32_t languageNo = m_settings.Values().languageNo;
  m_log.Write("--------------------------------------------------\n");
  m_log.Print("m_langno = %d\n", static_cast<int>(languageNo));
  m_language.Choose(languageNo);
}

bool CAddin::CreateMainToolbar(const char* failure) {
  if (SUCCEEDED(OnNewMainExplorer())) return true;
  if (!IsShuttingDown()) m_log.Write(failure);
  return false;
}

HRESULT CAddin::OnNewMainExplorer() {
  m_log.Write("CAddin::OnNewMainExplorer\n");
  const HRESULT result = m_session.ConnectExplorer();
  if (FAILED(result)) return result;
  return m_controls.CreateBar(m_session.MainExplorer(), m_session.AppVersion());
}

bool CAddin::StartController() {
  if (m_telCtrl.Initialize() != 1) {
    m_log.Write("Failed  Init telcon\n");
    return false;
  }
  m_telephone.ResetCounters(m_telCtrl.StartTime());
  return true;
}

// Keeps the application and its events, to notice when Outlook quits, and the explorer, whose Close
// event releases it, the toolbar and the timer.
void CAddin::GiveUpStart(HRESULT result) noexcept {
  m_session.DisconnectCollections();
  m_folders.UnregisterAll();
  if (m_explorerClosed) ReleaseExplorer();
  if (SUCCEEDED(result)) return;
  // After a failure Outlook calls only Release.
  m_controls.ReleaseBar();
  m_session.Release();
  m_language.Leave();
}

HRESULT CAddin::FinishStart(unsigned connection) {
  const auto stopped = [&] { return IsStartStopped(connection) || IsExplorerClosed(); };
  m_popUps.CreateCaller();
  m_link.Probe();
  m_window.StartTimer(kDevicePollTimer, m_link.PollInterval());
  const bool languageChosen = m_settings.Values().languageNo >= 0;
  if (!languageChosen && !CreateMainToolbar("Failed creating Main ToolBar\n")) return S_FALSE;
  if (stopped()) return S_FALSE;

  m_log.Write("point 1\n");
  m_controls.ClearDialList();
  if (stopped()) return S_FALSE;
  m_telephone.ResetDial();
  m_ui.FillToolbar();
  if (stopped()) return S_FALSE;
  m_folders.CreateRetrieve();
  if (stopped()) return S_FALSE;
  m_popUps.CreateOthers();

  m_buildDue = true;
  m_window.StartTimer(kDeferredTimer, 0);
  m_finished = true;
  m_log.Write("CAddin::OnConnection End\n");
  return S_OK;
}

}  // namespace quor
