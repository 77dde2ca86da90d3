#include "addin/outlook_session.h"

#include <utility>

#include "text/ansi.h"

namespace quor {
namespace {

// The integer before the first "."; 0 for an empty version.
int32_t MajorVersion(const std::wstring& version) {
  int32_t major = 0;
  for (const char digit : AnsiFromWide(version)) {
    if (digit < '0' || digit > '9' || major > 1000) break;
    major = major * 10 + (digit - '0');
  }
  return major;
}

}  // namespace

COutlookSession::COutlookSession(IOutlookEvents& events, IEventOwner& owner,
                                 CDiagnosticLog& log) noexcept
    : m_events(events),
      m_log(log),
      m_inspectorsEvents(owner, log, "InspectorsEvents"),
      m_explorersEvents(owner, log, "ExplorersEvents"),
      m_applicationEvents(owner, log, "ApplicationEvents"),
      m_explorerEvents(owner, log, "ExplorerEvents"),
      m_deletedItemsEvents(owner, log, "DeleteItemsEvents"),
      m_deletedFoldersEvents(owner, log, "DeleteFoldersEvents") {}

void COutlookSession::Attach(IDispatch* application) {
  m_application = QueryObject<COutlookApplication>(application);
  if (!m_application) _com_issue_error(E_NOINTERFACE);
  m_appVersion = MajorVersion(m_application.Version());
  m_log.Print("m_appVersion = %d\n", static_cast<int>(m_appVersion));
}

bool COutlookSession::AdviseOrLog(CEventConnection& connection, const CDispatchObject& source,
                                  REFIID events, EventHandler handler, const char* failure) {
  if (SUCCEEDED(connection.Advise(source.Get(), events, std::move(handler)))) return true;
  m_log.Print("Failed advising to %s\n", failure);
  return false;
}

bool COutlookSession::ConnectInspectors() {
  const CInspectors inspectors = m_application.Inspectors();
  if (!AdviseOrLog(
          m_inspectorsEvents, inspectors, kInspectorsEvents,
          [this](DISPID event, const CEventArguments& arguments) {
            if (event == kEventNewInspector) m_events.OnNewInspector(arguments.Object(0));
          },
          "InspectorsEvents")) {
    return false;
  }
  inspectors.Count();
  return true;
}

bool COutlookSession::ConnectExplorers() {
  const CExplorers explorers = m_application.Explorers();
  if (!AdviseOrLog(
          m_explorersEvents, explorers, kExplorersEvents,
          [this](DISPID event, const CEventArguments& arguments) {
            if (event == kEventNewExplorer) m_events.OnNewExplorer(arguments.Object(0));
          },
          "ExplorersEvents")) {
    return false;
  }
  const int32_t count = explorers.Count();
  for (int32_t i = 1; i <= count && !m_explorer; ++i) {
    m_explorer = explorers.Item(i);
  }
  if (!m_explorer) m_log.Write("spExplorer is NULL\n");
  return static_cast<bool>(m_explorer);
}

HRESULT COutlookSession::ConnectApplication() {
  const HRESULT result =
      m_applicationEvents.Advise(m_application.Get(), kApplicationEvents,
                                 [this](DISPID event, const CEventArguments& arguments) {
                                   OnApplicationEvent(event, arguments);
                                 });
  if (FAILED(result)) m_log.Write("Failed advising to ApplicationEvents\n");
  return result;
}

HRESULT COutlookSession::ConnectExplorer() {
  const HRESULT result = m_explorerEvents.Advise(
      m_explorer.Get(), kExplorerEvents,
      [this](DISPID event, const CEventArguments&) { OnExplorerEvent(event); });
  if (FAILED(result)) m_log.Write("Failed advising to ExplorerEvents\n");
  return result;
}

void COutlookSession::ReadStores() {
  const CNameSpace nameSpace = m_application.GetNamespace();
  const CFolders stores = nameSpace.Folders();
  const int32_t count = stores.Count();
  for (int32_t i = 1; i <= count; ++i) {
    const CFolder store = stores.Item(i);
    m_storeNames[store.EntryId()] = store.Name();
  }
  m_deletedItems = nameSpace.GetDefaultFolder(kFolderDeletedItems);
}

bool COutlookSession::ConnectDeletedItems() {
  return AdviseOrLog(
             m_deletedItemsEvents, m_deletedItems.Items(), kItemsEvents,
             [this](DISPID event, const CEventArguments& arguments) {
               if (event == kEventItemAdd) m_events.OnDeleteItemAdd(arguments.Object(0));
             },
             "DeleteItemsEvents") &&
         AdviseOrLog(
             m_deletedFoldersEvents, m_deletedItems.Folders(), kFoldersEvents,
             [this](DISPID event, const CEventArguments& arguments) {
               if (event == kEventFolderAdd) m_events.OnDeleteFolderAdd(arguments.Object(0));
               if (event == kEventFolderRemove) m_events.OnDeleteFolderRemove();
             },
             "DeleteFoldersEvents");
}

void COutlookSession::OnApplicationEvent(DISPID event, const CEventArguments& arguments) {
  if (event == kEventQuit) m_events.OnQuit();
  if (event == kEventOptionsPagesAdd) m_events.OnOptionsPagesAdd(arguments.Object(0));
}

void COutlookSession::OnExplorerEvent(DISPID event) {
  switch (event) {
    case kEventSelectionChange:
      m_events.OnSelectionChange();
      break;
    case kEventFolderSwitch:
      m_events.OnFolderSwitch();
      break;
    case kEventClose:
      m_events.OnCloseExplorer();
      break;
    default:
      break;
  }
}

void COutlookSession::DisconnectExplorer() noexcept {
  m_explorerEvents.Unadvise();
  m_explorer.Release();
}

void COutlookSession::Disconnect() noexcept {
  m_inspectorsEvents.Unadvise();
  m_explorersEvents.Unadvise();
  m_applicationEvents.Unadvise();
  m_deletedFoldersEvents.Unadvise();
  m_deletedItemsEvents.Unadvise();
}

void COutlookSession::Release() noexcept {
  Disconnect();
  DisconnectExplorer();
  m_deletedItems.Release();
  m_storeNames.clear();
  m_application.Release();
}

}  // namespace quor
