#include "addin/outlook_session.h"

#include <utility>

#include "com/com_boundary.h"
#include "text/ansi.h"

namespace quor {
namespace {

// The list ends after this many unreadable stores in a row: Outlook's count must be wrong.
constexpr int kMostUnreadableStores = 100;

// The integer before the first "."; 0 for an empty version. "16.0.1.2" gives 16.
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
      m_owner(owner),
      m_log(log),
      m_inspectorsEvents(owner, log, "InspectorsEvents"),
      m_explorersEvents(owner, log, "ExplorersEvents"),
      m_applicationEvents(owner, log, "ApplicationEvents"),
      m_explorerEvents(owner, log, "ExplorerEvents"),
      m_deletedItemsEvents(owner, log, "DeleteItemsEvents"),
      m_deletedFoldersEvents(owner, log, "DeleteFoldersEvents") {}

void COutlookSession::Attach(IDispatch* application) {
  const auto attached = QueryObject<COutlookApplication>(application);
  if (!attached) _com_issue_error(E_NOINTERFACE);
  m_application = attached;
  m_appVersion = MajorVersion(attached.Version());
  m_log.Print("m_appVersion = %d\n", static_cast<int>(m_appVersion));
}

bool COutlookSession::AdviseOrLog(CEventConnection& connection, const CDispatchObject& source,
                                  REFIID events, EventHandler handler, const char* failure) {
  if (SUCCEEDED(connection.Advise(source.Get(), events, std::move(handler)))) return true;
  if (!m_owner.IsShuttingDown()) m_log.Print("Failed advising to %s\n", failure);
  return false;
}

bool COutlookSession::ConnectInspectors() {
  const COutlookApplication application = m_application;
  const CInspectors inspectors = application.Inspectors();
  if (!AdviseOrLog(
          m_inspectorsEvents, inspectors, kInspectorsEvents,
          [this](DISPID event, const CEventArguments& arguments) {
            if (event == kEventNewInspector) m_events.OnNewInspector(arguments.Object(0));
          },
          "InspectorsEvents")) {
    return false;
  }
  inspectors.Count();  // the start fails if the collection does not answer
  return true;
}

bool COutlookSession::ConnectExplorers() {
  const COutlookApplication application = m_application;
  const CExplorers explorers = application.Explorers();
  if (!AdviseOrLog(
          m_explorersEvents, explorers, kExplorersEvents,
          [this](DISPID event, const CEventArguments& arguments) {
            if (event == kEventNewExplorer) m_events.OnNewExplorer(arguments.Object(0));
          },
          "ExplorersEvents")) {
    return false;
  }
  const int32_t count = explorers.Count();
  CExplorer explorer;
  for (int32_t i = 1; i <= count && !explorer; ++i) {
    explorer = explorers.Item(i);
  }
  if (!explorer) m_log.Write("spExplorer is NULL\n");
  if (!m_owner.IsShuttingDown()) m_explorer = explorer;
  return static_cast<bool>(m_explorer);
}

int32_t COutlookSession::CountExplorers() const {
  const COutlookApplication application = m_application;
  return application.Explorers().Count();
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
  const COutlookApplication application = m_application;
  const CNameSpace nameSpace = application.GetNamespace();
  const CFolders stores = nameSpace.Folders();
  const int32_t count = stores.Count();
  int unreadable = 0;
  for (int32_t i = 1; i <= count && unreadable < kMostUnreadableStores; ++i) {
    if (m_owner.IsShuttingDown()) return;
    // The telephone must still work if a store is offline or damaged.
    const bool read = GuardCall(m_log, "reading a store", [&] {
      const CFolder store = stores.Item(i);
      const std::wstring entryId = store.EntryId();
      m_storeNames[entryId] = store.Name();
    });
    unreadable = read ? 0 : unreadable + 1;
  }
  if (m_owner.IsShuttingDown()) return;
  const CFolder deletedItems = nameSpace.GetDefaultFolder(kFolderDeletedItems);
  if (!m_owner.IsShuttingDown()) m_deletedItems = deletedItems;
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

void COutlookSession::DisconnectCollections() noexcept {
  m_inspectorsEvents.Unadvise();
  m_explorersEvents.Unadvise();
  m_deletedFoldersEvents.Unadvise();
  m_deletedItemsEvents.Unadvise();
  m_storeNames.clear();
  m_deletedItems.Release();
}

void COutlookSession::Disconnect() noexcept {
  m_inspectorsEvents.Unadvise();
  m_explorersEvents.Unadvise();
  m_applicationEvents.Unadvise();
  DisconnectCollections();
}

void COutlookSession::Release() noexcept {
  Disconnect();
  DisconnectExplorer();
  m_application.Release();
}

}  // namespace quor
