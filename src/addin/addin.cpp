#include "addin/addin.h"

#include <new>
#include <string_view>

#include "addin/custom_ui.h"
#include "com/class_table.h"
#include "com/com_boundary.h"
#include "dialogs/property_page.h"
#include "module/identifiers.h"

namespace quor {
namespace {

std::wstring ModuleFolder() {
  const std::wstring path = ModulePath();
  return path.substr(0, path.find_last_of(L'\\'));
}

}  // namespace

CAddin* CAddin::s_addin = nullptr;

CAddin::CAddin()
    : m_telCtrl(m_eventObjects, m_log, m_clock.TickMilliseconds()),
      m_settings(m_configurationFile, m_systemLanguage, *this, m_log),
      m_window(Identity(), *this, m_log),
      m_usb(ModuleFolder(), m_log),
      m_link(m_usb, m_window, m_records, m_log),
      m_session(*this, *this, m_log),
      m_contacts(m_session.Application(), m_trackedFolders, m_log),
      m_index(m_contacts, m_log),
      m_folders(m_session.Application(), m_trackedFolders, m_index, *this, *this, m_log),
      m_callers(m_index, m_contacts, m_folders),
      m_journal(m_session.Application(), m_contacts, m_resources, m_settings.Values(), m_log),
      m_calls(m_clock, m_localClock, m_journal),
      m_popUps({Identity(), m_resources, m_log}, *this),
      m_ui(m_telephone, m_controls, m_session, m_settings, m_dialogs, m_resources, m_log),
      m_controls(m_ui, m_ui.Actions(), m_window, m_settings.Values(), m_resources, *this, m_log),
      m_dialogs({Identity(), m_resources, m_log}, m_settings, m_controls, m_popUps, m_telCtrl,
                m_link, *this),
      m_telephone({m_records, m_window, m_controls, m_popUps, m_popUps.Caller(), m_callers, m_calls,
                   m_settings.Values(), m_settings, m_clock, m_log}),
      m_requests(m_link, m_records, m_controls, m_log) {
  s_addin = this;
}

CAddin::~CAddin() {
  if (s_addin == this) s_addin = nullptr;
  FinalRelease();
}

HRESULT CAddin::Create(IUnknown* outer, REFIID iid, void** object) {
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  auto* addin = new CAddin;
  const IUnknownPtr alive(&addin->Identity(), false);
  const HRESULT result = addin->FinalConstruct();
  return FAILED(result) ? result : addin->QueryInterface(iid, object);
}

HRESULT CAddin::CreateOptionsPage(IUnknown* outer, REFIID iid, void** object) {
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  return s_addin != nullptr ? s_addin->CreateOptionsPage(iid, object) : E_FAIL;
}

HRESULT CAddin::CreateOptionsPage(REFIID iid, void** object) {
  return CPropPage::Create({Identity(), m_dialogs, m_resources, m_log}, iid, object);
}

HRESULT CAddin::FinalConstruct() noexcept {
  m_log.Write("Final Construct\n");
  return m_window.Create();
}

void CAddin::FinalRelease() noexcept {
  m_log.Write("Final Release\n");
  m_window.Destroy();
  // The base's library runs a thread for an open device.
  m_link.Close();
  // Release in order while all members exist: releasing Outlook's objects may raise events.
  m_disconnected = true;
  ReleaseOutlook(ext_dm_HostShutdown);
  m_language.Leave();
}

void* CAddin::FindInterface(REFIID iid) noexcept {
  if (iid == IID_IUnknown) return &Identity();
  if (iid == __uuidof(IDTExtensibility2)) return static_cast<IDTExtensibility2*>(this);
  if (iid == __uuidof(IRibbonExtensibility)) return static_cast<IRibbonExtensibility*>(this);
  // Office calls the ribbon's callbacks through the object's IDispatch.
  if (iid == IID_IDispatch || iid == __uuidof(ITelephoneAddin)) {
    return static_cast<ITelephoneAddin*>(this);
  }
  return nullptr;
}

void CAddin::Describe(AboutFacts& facts) const {
  facts.library = m_usb.State();
  facts.missingOrdinal = m_usb.MissingOrdinal();
  const CContactScan& scan = m_folders.Scan();
  facts.contactsAreBeingRead = m_buildDue || scan.IsRunning();
  facts.contactsWereLeftOut = scan.EndedAtLimit();
  facts.contacts = scan.ScannedContacts();
  facts.items = scan.CountedItems();
  facts.configurationIsUnreadable = m_configurationFile.IsUnreadable();
}

STDMETHODIMP CAddin::OnConnection(IDispatch* application, ext_ConnectMode, IDispatch*,
                                  SAFEARRAY**) {
  const IUnknownPtr alive = &Identity();
  m_log.Write("CAddin::OnConnection\n");
  m_sessionClock.Begin();
  const CSessionClock::CSpan span(m_sessionClock, CSessionClock::Phase::Start);
  const unsigned connection = ++m_connection;
  // A failed start leaves the add-in loaded but idle.
  HRESULT result = S_FALSE;
  GuardCall(m_log, "OnConnection", [&] { result = Start(application, connection); });
  // Disconnected and connected again inside one of the calls.
  if (connection != m_connection) return S_FALSE;
  m_starting = false;
  if (m_disconnected) {
    // Disconnected inside one of the calls: release what was acquired since.
    ReleaseOutlook(ext_dm_UserClosed);
    return S_FALSE;
  }
  if (!m_finished) GiveUpStart(result);
  return result;
}

STDMETHODIMP CAddin::OnDisconnection(ext_DisconnectMode mode, SAFEARRAY**) {
  const IUnknownPtr alive = &Identity();
  m_log.Write("CAddin::OnDisconnection\n");
  if (m_disconnected) {
    m_log.Write("CAddin::OnDisconnection break\n");
    return S_OK;
  }
  m_disconnected = true;
  GuardCall(m_log, "OnDisconnection", [&] { Disconnect(mode); });
  m_sessionClock.Write(m_settings.Path());
  return S_OK;
}

STDMETHODIMP CAddin::OnAddInsUpdate(SAFEARRAY**) {
  m_log.Write("CAddin::OnAddInsUpdate\n");
  return S_OK;
}

STDMETHODIMP CAddin::OnStartupComplete(SAFEARRAY**) {
  m_log.Write("CAddin::OnStartupComplete\n");
  return S_OK;
}

STDMETHODIMP CAddin::OnBeginShutdown(SAFEARRAY**) {
  m_log.Write("CAddin::OnBeginShutdown\n");
  return S_OK;
}

STDMETHODIMP CAddin::GetCustomUI(BSTR ribbonId, BSTR* document) {
  if (document == nullptr) return E_POINTER;
  *document = nullptr;
  return GuardComCall(m_log, "GetCustomUI", [&]() -> HRESULT {
    const int resource = RibbonDocumentResource(TextFromBstr(ribbonId));
    if (resource != 0) *document = RibbonDocument(m_resources, resource).Detach();
    return S_OK;
  });
}

}  // namespace quor
