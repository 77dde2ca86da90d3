#include "addin/addin.h"

// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include "settings/configuration_path.h"

namespace quor {
namespace {

// Classes of the common controls that the windows use, asked for one after the other.
constexpr DWORD kInternetClasses = 0x800;
constexpr DWORD kTabClasses = 0x8;

void InitialiseCommonControls() {
  for (const DWORD classes : {kInternetClasses, kTabClasses}) {
    const INITCOMMONCONTROLSEX request = {sizeof request, classes};
    InitCommonControlsEx(&request);
  }
}

}  // namespace

HRESULT CAddin::Start(IDispatch* application) {
  m_disconnected = false;
  m_quitting = false;
  m_explorerClosed = false;
  LoadConfiguration();
  m_session.Release();
  InitialiseCommonControls();

  m_session.Attach(application);
  m_telephone.SetAppVersion(m_session.AppVersion());
  if (!m_session.ConnectInspectors() || !m_session.ConnectExplorers()) return S_FALSE;
  // The one failure that Outlook gets to see.
  if (const HRESULT result = m_session.ConnectApplication(); FAILED(result)) return result;

  const bool languageChosen = m_settings.Values().languageNo >= 0;
  if (languageChosen && !CreateMainToolbar("Failed creating Main ToolBar(m_langno >= 0)\n")) {
    return S_FALSE;
  }
  m_session.ReadStores();
  if (!m_session.ConnectDeletedItems() || !StartController()) return S_FALSE;
  if (m_explorerClosed) {
    m_log.Write("Explorer is close\n");
    return S_FALSE;
  }
  return m_disconnected ? S_FALSE : FinishStart();
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
  m_log.Write(failure);
  return false;
}

HRESULT CAddin::OnNewMainExplorer() {
  m_log.Write("CAddin::OnNewMainExplorer\n");
  const HRESULT result = m_session.ConnectExplorer();
  return FAILED(result) ? result : m_ui.CreateMainToolbar();
}

bool CAddin::StartController() {
  if (m_telCtrl.Initialize() != 1) {
    m_log.Write("Failed  Init telcon\n");
    return false;
  }
  m_telephone.ResetCounters(m_telCtrl.StartTime());
  return true;
}

void CAddin::FindOutlookWindow() {
  m_popUps.FindOutlook();
  m_dialogs.SetOwner(m_popUps.OutlookWindow());
}

HRESULT CAddin::FinishStart() {
  m_popUps.CreateCaller();
  m_link.Probe();
  m_window.StartTimer(kDevicePollTimer, m_link.PollInterval());
  const bool languageChosen = m_settings.Values().languageNo >= 0;
  if (!languageChosen && !CreateMainToolbar("Failed creating Main ToolBar\n")) return S_FALSE;

  m_log.Write("point 1\n");
  m_ui.ClearDialList();
  m_telephone.ResetDial();
  m_ui.FillToolbar();
  FindOutlookWindow();
  m_folders.CreateRetrieve();
  m_popUps.CreateOthers();

  m_buildDue = true;
  m_stopRequested = false;
  m_window.StartTimer(kDeferredTimer, 0);
  m_finished = true;
  m_log.Write("CAddin::OnConnection End\n");
  return S_OK;
}

}  // namespace quor
