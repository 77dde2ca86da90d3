#include "contacts/contact_folders.h"

#include <utility>

#include "com/com_boundary.h"
#include "contacts/outlook_contact_fields.h"
#include "contacts/outlook_scan_folder.h"
#include "text/ansi.h"

namespace quor {
namespace {

// Ends a walk without an error: the add-in is shutting down.
constexpr HRESULT kWalkEnded = S_FALSE;

}  // namespace

// Runs one call into Outlook. A failure is logged with the line and returned.
HRESULT CContactFolders::Attempt(const char* line, const std::function<void()>& call) const {
  try {
    call();
    return S_OK;
  } catch (const _com_error& error) {
    if (line != nullptr) m_log.Write(line);
    return FAILED(error.Error()) ? error.Error() : E_FAIL;
  }
}

CFolder CContactFolders::DefaultFolder() const {
  // A copy, because a shutdown inside the call releases m_application.
  const COutlookApplication application = m_application;
  return application.GetNamespace().GetDefaultFolder(kFolderContacts);
}

void CContactFolders::CreateRetrieve() {
  const CFolder contacts = DefaultFolder();
  m_tracked.SetContactsFolder(contacts.EntryId());
  RegisterContactFolder(contacts);
  m_log.Write("Create Retrieve End\n");
}

HRESULT CContactFolders::RegisterContactFolder(const CFolder& folder) {
  return Register(folder, kCollectLines);
}

HRESULT CContactFolders::Register(const CFolder& folder, const FolderWalkLines& lines) {
  CFolders folders;
  const HRESULT listening = ListenTo(folder, lines, folders);
  if (listening != S_OK || !folders) return listening;
  return WalkSubfolders(folders, lines,
                        [&](const CFolder& subfolder) { return Register(subfolder, lines); });
}

// Leaves `folders` empty if we already listen to the folder: its subfolders are not walked again.
// Returns kWalkEnded if the add-in was shut down inside one of the calls.
HRESULT CContactFolders::ListenTo(const CFolder& folder, const FolderWalkLines& lines,
                                  CFolders& folders) {
  if (m_owner.IsShuttingDown()) return kWalkEnded;
  std::wstring entryId;
  CItems items;
  HRESULT result = Attempt(nullptr, [&] {
    entryId = folder.EntryId();
    folder.Name();  // a folder that does not answer is not followed
  });
  if (FAILED(result)) return result;
  if (m_inspContItems.contains(entryId)) {
    m_log.Write("m_inspContItems is already exist!\n");
    return S_OK;
  }
  result = Attempt(nullptr, [&] { items = folder.Items(); });
  if (FAILED(result)) return result;

  // Shared, because one of the calls below may unregister the folder.
  const auto sink = std::make_shared<CContactItems>(*this, m_owner, m_log);
  result = sink->AdviseItems(items);
  if (m_owner.IsShuttingDown()) return kWalkEnded;
  if (FAILED(result)) return result;
  m_inspContItems[entryId] = sink;
  m_tracked.RemoveDeleted(entryId);

  CFolders subfolders;
  result = Attempt(lines.folders, [&] { subfolders = folder.Folders(); });
  if (FAILED(result)) return result;
  result = sink->AdviseFolders(subfolders);
  if (m_owner.IsShuttingDown()) return kWalkEnded;
  if (SUCCEEDED(result)) folders = subfolders;
  return result;
}

HRESULT CContactFolders::WalkSubfolders(const CFolder& folder, const FolderWalkLines& lines,
                                        const VisitFolder& visit) {
  CFolders folders;
  const HRESULT result = Attempt(lines.folders, [&] { folders = folder.Folders(); });
  return FAILED(result) ? result : WalkSubfolders(folders, lines, visit);
}

// Walks from the last folder to the first; any result of a visit other than S_OK ends the walk.
HRESULT CContactFolders::WalkSubfolders(const CFolders& folders, const FolderWalkLines& lines,
                                        const VisitFolder& visit) {
  int32_t count = 0;
  HRESULT result = Attempt(lines.count, [&] { count = folders.Count(); });
  if (FAILED(result) || count == 0) return result;

  CFolder subfolder;
  result = Attempt(lines.last, [&] { subfolder = folders.GetLast(); });
  const char* visitLine = lines.visitLast;
  while (result == S_OK && subfolder) {
    result = visit(subfolder);
    if (FAILED(result) && visitLine != nullptr) m_log.Write(visitLine);
    if (result != S_OK) break;
    visitLine = lines.visitPrevious;
    result = Attempt(lines.previous, [&] { subfolder = folders.GetPrevious(); });
  }
  return result;
}

HRESULT CContactFolders::UnregisterContactFolder(const CFolder& folder) {
  std::wstring entryId;
  const HRESULT result = Attempt(nullptr, [&] { entryId = folder.EntryId(); });
  if (FAILED(result)) return result;
  if (m_inspContItems.erase(entryId) == 0) m_log.Write("m_inspContItems is not found!\n");
  return WalkSubfolders(folder, kUnregisterLines, [this](const CFolder& subfolder) {
    return UnregisterContactFolder(subfolder);
  });
}

void CContactFolders::UnregisterAll() noexcept {
  // Clear the member first: unadvising calls into Outlook and may re-enter.
  const auto sinks = std::exchange(m_inspContItems, {});
}

void CContactFolders::CreateContact() {
  const auto readsSubfolders = [this] { return !m_inspContItems.empty(); };
  m_scan.Begin(std::make_shared<COutlookScanFolder>(DefaultFolder(), readsSubfolders));
}

void CContactFolders::FinishScan() noexcept {
  GuardCall(m_log, "finishing the scan", [this] { m_scan.FinishNow(); });
}

void CContactFolders::StopScan() noexcept {
  GuardCall(m_log, "stopping the scan", [this] { m_scan.Stop(); });
}

void CContactFolders::OnContactChanged(IDispatch* item) {
  const auto contact = QueryObject<CContactItem>(item);
  if (!contact) return;
  COutlookContactFields open(contact);
  if (m_scan.IsEntering()) m_scan.FinishEntering();
  if (m_scan.IsRunning()) {
    m_scan.TelNoCheckAndUpdate(open);
  } else {
    m_index.TelNoCheckAndUpdate(open);
  }
}

void CContactFolders::OnSubfolderAdded(IDispatch* folder) {
  if (const auto added = QueryObject<CFolder>(folder)) Register(added, kCountLines);
}

void CContactFolders::OnDeleteItemAdd(IDispatch* item) {
  m_log.Write("CAddin::OnDeleteItemAdd\n");
  const auto contact = QueryObject<CContactItem>(item);
  if (!contact) return;
  COutlookContactFields open(contact);
  if (m_scan.IsEntering()) m_scan.FinishEntering();
  if (m_scan.IsRunning()) m_scan.OnContactItemDelete(open);
  m_index.OnContactItemDelete(open);
}

void CContactFolders::OnDeleteFolderAdd(IDispatch* folder) {
  m_log.Write("CAddin::OnDeleteFolderAdd\n");
  const auto deleted = QueryObject<CFolder>(folder);
  if (!deleted || deleted.DefaultItemType() != kItemTypeContact) return;
  m_tracked.AddDeleted(deleted.EntryId());
  UnregisterContactFolder(deleted);
}

void CContactFolders::OnDeleteFolderRemove(const CFolder& deletedItems) {
  m_log.Write("CAddin::OnDeleteFolderRemove\n");
  if (!deletedItems) return;
  const std::wstring store = deletedItems.StoreId();
  const COutlookApplication application = m_application;
  const CNameSpace nameSpace = application.GetNamespace();
  const std::set<std::wstring> known = m_tracked.Deleted();
  for (const std::wstring& entryId : known) {
    if (FAILED(Attempt(nullptr, [&] { nameSpace.GetFolderFromId(entryId, store); }))) {
      m_tracked.RemoveDeleted(entryId);
    }
  }
}

}  // namespace quor
