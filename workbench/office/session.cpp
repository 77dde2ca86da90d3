#include "workbench/office/session.h"

#include <algorithm>
#include <string>

#include "workbench/office/application_objects.h"
#include "workbench/office/folder_objects.h"
#include "workbench/office/window_objects.h"

namespace quor::workbench {
namespace {

// The collections over a folder at the time of an event; sinks may create and drop others
// meanwhile.
template <class Collection>
std::vector<CModelPtr<Collection>> Listeners(const std::vector<Collection*>& collections) {
  std::vector<CModelPtr<Collection>> listeners;
  for (Collection* collection : collections) {
    if (collection->SinkCount() != 0) listeners.emplace_back(collection);
  }
  return listeners;
}

// The active window is the last one of its list.
template <class Window>
void MoveToEnd(std::vector<CModelPtr<Window>>& windows, const CWindowObject& active) {
  const auto found = std::ranges::find_if(
      windows, [&active](const auto& window) { return window.get() == &active; });
  if (found != windows.end()) std::rotate(found, found + 1, windows.end());
}

}  // namespace

CSession::CSession(CModel& model, const SessionOptions& options, IOutlookFace& face)
    : m_model(model),
      m_face(face),
      m_options(options),
      m_mailbox(options.version),
      m_application(MakeObject<CApplication>(*this)),
      m_nameSpace(MakeObject<CNameSpace>(*this)),
      m_explorers(MakeObject<CExplorers>(*this)),
      m_inspectors(MakeObject<CInspectors>(*this)),
      m_comAddIns(MakeObject<CComAddIns>(*this)) {}

CSession::~CSession() = default;

std::wstring CSession::VersionText() const {
  const int version = m_options.version;
  const wchar_t* build = L".0.0.5000";
  if (version <= 11) build = L".0.0.8000";
  if (version == 12) build = L".0.0.6000";
  if (version == 14) build = L".0.0.7000";
  return std::to_wstring(version) + build;
}

CModelPtr<CFolder> CSession::FolderObject(FolderNode& folder) {
  if (!folder.objects.empty() && !m_givesSeveralObjects) return folder.objects.back();
  return MakeObject<CFolder>(*this, folder);
}

CModelPtr<CItem> CSession::ItemObject(const StoredItemPtr& item) {
  if (item->object != nullptr && !m_givesSeveralObjects) return item->object;
  return MakeObject<CItem>(*this, item, nullptr);
}

CModelPtr<CItem> CSession::NewItem(ItemType type, FolderNode& folder) {
  auto item = std::make_shared<StoredItem>();
  item->type = type;
  return MakeObject<CItem>(*this, item, &folder);
}

void CSession::RaiseItemEvent(FolderNode& folder, const wchar_t* event, const StoredItemPtr& item) {
  if (!m_delaysItemEvents) return FireItemEvent(folder, event, item);
  m_model.RunLater([this, id = folder.entryId, event, item] {
    FolderNode* const then = m_mailbox.FolderById(id, {});
    if (then != nullptr) FireItemEvent(*then, event, item);
  });
}

void CSession::FireItemEvent(FolderNode& folder, const wchar_t* event, const StoredItemPtr& item) {
  const CModelPtr<CItem> object = ItemObject(item);
  for (const auto& items : Listeners(folder.itemCollections))
    items->Fire(event, {CValue(object.get())});
}

void CSession::RaiseItemRemove(FolderNode& folder) {
  // Does not apply to the last item of a personal folders file.
  if (m_mailbox.ItemCount(*folder.store) == 0) return;
  for (const auto& items : Listeners(folder.itemCollections))
    items->Fire(L"ItemRemove");
}

void CSession::SaveNewItem(const StoredItemPtr& item, FolderNode& folder) {
  m_mailbox.InsertItem(folder, item);
  m_face.OnChanged();
  RaiseItemEvent(folder, L"ItemAdd", item);
}

void CSession::NoteItemChange(const StoredItemPtr& item) {
  m_face.OnChanged();
  if (item->folder != nullptr) RaiseItemEvent(*item->folder, L"ItemChange", item);
}

void CSession::AddItems(FolderNode& folder, const std::vector<StoredItemPtr>& items) {
  for (const StoredItemPtr& item : items)
    m_mailbox.InsertItem(folder, item);
  m_face.OnChanged();
  if (items.size() >= kBulkItems) return;
  for (const StoredItemPtr& item : items) {
    if (item->folder == &folder) RaiseItemEvent(folder, L"ItemAdd", item);
  }
}

void CSession::MoveItem(const StoredItemPtr& item, FolderNode& folder) {
  FolderNode* before = item->folder;
  m_mailbox.MoveItem(item, folder);
  m_face.OnChanged();
  if (before != nullptr) RaiseItemRemove(*before);
  if (item->folder == &folder) RaiseItemEvent(folder, L"ItemAdd", item);
  const auto windows = m_explorerWindows;
  for (const auto& explorer : windows)
    explorer->Deselect(item);
}

void CSession::DeleteItems(const std::vector<StoredItemPtr>& items) {
  const bool events = items.size() < kBulkItems;
  for (const StoredItemPtr& item : items) {
    if (item->folder == nullptr) continue;
    FolderNode& before = *item->folder;
    FolderNode& deleted = *before.store->deletedItems;
    const bool forGood = CMailbox::IsBelow(before, deleted);
    if (!forGood && events) {
      MoveItem(item, deleted);
      continue;
    }
    if (forGood) {
      m_mailbox.RemoveItem(item);
    } else {
      m_mailbox.MoveItem(item, deleted);
    }
    if (events) RaiseItemRemove(before);
    const auto windows = m_explorerWindows;
    for (const auto& explorer : windows)
      explorer->Deselect(item);
  }
  m_face.OnChanged();
}

void CSession::RaiseFolderEvent(FolderNode& parent, const wchar_t* event, FolderNode* folder) {
  const CModelPtr<CFolder> object =
      folder != nullptr ? FolderObject(*folder) : CModelPtr<CFolder>();
  for (const auto& folders : Listeners(parent.folderCollections)) {
    if (folder == nullptr) {
      folders->Fire(event);
    } else {
      folders->Fire(event, {CValue(object.get())});
    }
  }
}

FolderNode& CSession::AddFolder(FolderNode& parent, const std::wstring& name, ItemType type) {
  FolderNode& folder = m_mailbox.AddFolder(parent, name, type);
  m_face.OnChanged();
  RaiseFolderEvent(parent, L"FolderAdd", &folder);
  return folder;
}

void CSession::MoveFolder(FolderNode& folder, FolderNode& parent) {
  FolderNode* before = folder.parent;
  m_mailbox.MoveFolder(folder, parent);
  m_face.OnChanged();
  RaiseFolderEvent(*before, L"FolderRemove", nullptr);
  RaiseFolderEvent(parent, L"FolderAdd", &folder);
}

void CSession::DeleteFolder(FolderNode& folder) {
  FolderNode& deleted = *folder.store->deletedItems;
  if (folder.parent == nullptr || &folder == &deleted) {
    throw CModelError(E_ACCESSDENIED, "This folder cannot be deleted.");
  }
  if (!CMailbox::IsBelow(folder, deleted)) {
    MoveFolder(folder, deleted);
    return;
  }
  FolderNode& parent = *folder.parent;
  LeaveFolder(folder);
  m_mailbox.RemoveFolder(folder);
  m_face.OnChanged();
  RaiseFolderEvent(parent, L"FolderRemove", nullptr);
}

// Removes all references to a folder before it is deleted permanently.
void CSession::LeaveFolder(const FolderNode& folder) {
  for (const auto& child : folder.folders)
    LeaveFolder(*child);
  const auto windows = m_explorerWindows;
  for (const auto& explorer : windows) {
    if (explorer->IsOpen() && &explorer->Folder() == &folder) {
      explorer->LeaveFolder(*m_mailbox.DefaultFolder(6));
    }
  }
  for (CFolder* object : folder.objects)
    object->Forget();
  for (CItems* items : folder.itemCollections)
    items->Forget();
  for (CFolders* folders : folder.folderCollections)
    folders->Forget();
  for (const StoredItemPtr& item : folder.items)
    item->folder = nullptr;
}

CModelPtr<CExplorer> CSession::OpenExplorer(FolderNode& folder) {
  CModelPtr<CExplorer> explorer = MakeObject<CExplorer>(*this, folder);
  m_explorerWindows.push_back(explorer);
  m_explorers->Fire(L"NewExplorer", {CValue(explorer.get())});
  return explorer;
}

void CSession::ShowExplorer(CExplorer& explorer) {
  const CModelPtr<CExplorer> kept(&explorer);
  m_face.OnShown(explorer);
  ActivateWindow(explorer);
}

void CSession::CloseExplorer(CExplorer& explorer) {
  const CModelPtr<CExplorer> kept(&explorer);
  if (!explorer.IsOpen()) return;
  explorer.Fire(L"Close");
  std::erase(m_explorerWindows, kept);
  explorer.SetClosed();
  m_face.OnClosed(explorer);
}

CModelPtr<CInspector> CSession::InspectorFor(CItem& item) {
  for (const auto& inspector : m_inspectorWindows) {
    if (inspector->Item()->Stored() == item.Stored()) return inspector;
  }
  return MakeObject<CInspector>(*this, item);
}

bool CSession::ShowInspector(CInspector& inspector) {
  const CModelPtr<CInspector> kept(&inspector);
  if (!inspector.IsShown()) {
    if (!inspector.Item()->RaiseOpen()) return false;
    inspector.SetShown();
    m_inspectorWindows.push_back(kept);
    m_inspectors->Fire(L"NewInspector", {CValue(&inspector)});
    if (!inspector.IsOpen()) return false;  // a sink has closed it
    m_face.OnShown(inspector);
  }
  ActivateWindow(inspector);
  return true;
}

bool CSession::CloseInspector(CInspector& inspector) {
  const CModelPtr<CInspector> kept(&inspector);
  if (!inspector.IsOpen()) return true;
  const CModelPtr<CItem> item(inspector.Item());
  if (inspector.IsShown()) {
    if (!item->RaiseClose()) return false;
    inspector.Fire(L"Close");
  }
  std::erase(m_inspectorWindows, kept);
  inspector.SetClosed();
  m_face.OnClosed(inspector);
  m_inspectorActive = m_inspectorActive && !m_inspectorWindows.empty();
  if (const CModelPtr<CWindowObject> active = ActiveWindow()) active->RaiseActivate(true);
  return true;
}

bool CSession::MoveInspector(CInspector& inspector, CItem& next) {
  const CModelPtr<CInspector> kept(&inspector);
  const CModelPtr<CItem> shown(inspector.Item());
  const CModelPtr<CItem> keptNext(&next);
  if (!shown->RaiseClose() || !next.RaiseOpen() || !inspector.IsOpen()) return false;
  inspector.SetItem(next);
  m_face.OnChanged();
  ActivateWindow(inspector);
  return true;
}

void CSession::ActivateWindow(CWindowObject& window) {
  const CModelPtr<CWindowObject> kept(&window);
  const CModelPtr<CWindowObject> before = ActiveWindow();
  if (before && before != kept) before->RaiseActivate(false);
  m_inspectorActive = !window.IsExplorer();
  MoveToEnd(m_explorerWindows, window);
  MoveToEnd(m_inspectorWindows, window);
  window.RaiseActivate(true);
}

CModelPtr<CWindowObject> CSession::ActiveWindow() const {
  if (m_inspectorActive) return ActiveInspector();
  return ActiveExplorer();
}

CModelPtr<CExplorer> CSession::ActiveExplorer() const {
  return m_explorerWindows.empty() ? CModelPtr<CExplorer>() : m_explorerWindows.back();
}

CModelPtr<CInspector> CSession::ActiveInspector() const {
  return m_inspectorWindows.empty() ? CModelPtr<CInspector>() : m_inspectorWindows.back();
}

}  // namespace quor::workbench
