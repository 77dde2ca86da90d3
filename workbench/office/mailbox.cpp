#include "workbench/office/mailbox.h"

#include <algorithm>

namespace quor::workbench {
namespace {

constexpr uint32_t kNodeStep = 0x20;
constexpr wchar_t kDigits[] = L"0123456789ABCDEF";

std::wstring Hex(uint64_t number, int digits) {
  std::wstring text(static_cast<size_t>(digits), L'0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number >>= 4) {
    *digit = kDigits[number & 0xF];
  }
  return text;
}

std::string Narrow(std::wstring_view text) {
  std::string narrow;
  for (const wchar_t character : text) {
    narrow += character < 0x80 ? static_cast<char>(character) : '?';
  }
  return narrow;
}

std::vector<std::wstring_view> Steps(std::wstring_view path) {
  std::vector<std::wstring_view> steps;
  while (!path.empty()) {
    const size_t end = std::min(path.find_first_of(L"/\\"), path.size());
    if (end != 0) steps.push_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return steps;
}

FolderNode* ChildByName(const FolderNode& folder, std::wstring_view name) {
  for (const auto& child : folder.folders) {
    if (child->name == name) return child.get();
  }
  return nullptr;
}

size_t CountBelow(const FolderNode& folder) noexcept {
  size_t count = folder.items.size();
  for (const auto& child : folder.folders)
    count += CountBelow(*child);
  return count;
}

}  // namespace

const std::wstring* CFieldSet::Find(int32_t id) const noexcept {
  for (const auto& [key, text] : m_fields) {
    if (key == id) return &text;
  }
  return nullptr;
}

std::wstring CFieldSet::Get(int32_t id) const {
  const std::wstring* text = Find(id);
  return text != nullptr ? *text : std::wstring();
}

void CFieldSet::Set(int32_t id, std::wstring text) {
  for (auto& [key, value] : m_fields) {
    if (key != id) continue;
    value = std::move(text);
    return;
  }
  m_fields.emplace_back(id, std::move(text));
}

CMailbox::CMailbox(int version) {
  Store& store = AddStore(L"Personal Folders");
  AddDefault(store, 6, L"Inbox", ItemType::Mail);
  AddDefault(store, 4, L"Outbox", ItemType::Mail);
  AddDefault(store, 5, L"Sent Items", ItemType::Mail);
  AddDefault(store, 9, L"Calendar", ItemType::Appointment);
  store.contacts = &AddDefault(store, 10, L"Contacts", ItemType::Contact);
  AddDefault(store, 11, L"Journal", ItemType::Journal);
  AddDefault(store, 12, L"Notes", ItemType::Note);
  AddDefault(store, 13, L"Tasks", ItemType::Task);
  AddDefault(store, 16, L"Drafts", ItemType::Mail);
  AddDefault(store, 23, L"Junk E-mail", ItemType::Mail);
  // Items have the same ids in every version.
  if (version >= 12) {
    AddDefault(store, 25, L"RSS Feeds", ItemType::Mail);
  } else {
    store.lastNode += kNodeStep;
  }
}

void CMailbox::AddSecondaryStore(std::wstring name) {
  Store& store = AddStore(std::move(name));
  store.contacts = &AddDefault(store, 10, L"Contacts", ItemType::Contact);
}

Store& CMailbox::AddStore(std::wstring name) {
  m_stores.push_back(std::make_unique<Store>());
  Store& store = *m_stores.back();
  store.uid = L"5A3C9E10D27B4F68A1B0C4D5E6F708" + Hex(static_cast<uint32_t>(m_stores.size()), 2);
  store.storeId = L"0000000038A1BB1005E5101AA1BB08002B2A56C2" + store.uid;
  store.top = std::make_unique<FolderNode>();
  store.top->name = std::move(name);
  store.top->store = &store;
  store.top->entryId = NewEntryId(store);
  m_foldersById[Key(store.top->entryId)] = store.top.get();
  store.deletedItems = &AddDefault(store, 3, L"Deleted Items", ItemType::Mail);
  return store;
}

FolderNode& CMailbox::AddDefault(Store& store, long id, const wchar_t* name, ItemType type) {
  FolderNode& folder = AddFolder(*store.top, name, type);
  if (&store == m_stores.front().get()) m_defaults.emplace_back(id, &folder);
  return folder;
}

std::wstring CMailbox::Key(std::wstring_view entryId) {
  std::wstring key(entryId);
  for (wchar_t& digit : key) {
    if (digit >= L'a' && digit <= L'f') digit = static_cast<wchar_t>(digit - L'a' + L'A');
  }
  return key;
}

// Flags, the store's unique id, the node's number: the layout of a personal folders file.
std::wstring CMailbox::NewEntryId(Store& store) {
  std::wstring id = L"00000000" + store.uid + Hex(store.lastNode += kNodeStep, 8);
  while (id.size() < m_entryIdStyle.digits) {
    id.insert(40, std::min<size_t>(m_entryIdStyle.digits - id.size(), 2), L'0');
  }
  if (m_entryIdStyle.lowerCase) {
    for (wchar_t& digit : id) {
      if (digit >= L'A' && digit <= L'F') digit = static_cast<wchar_t>(digit - L'A' + L'a');
    }
  }
  return id;
}

FolderNode* CMailbox::DefaultFolder(long olDefaultFolder) const noexcept {
  for (const auto& [id, folder] : m_defaults) {
    if (id == olDefaultFolder) return folder;
  }
  return nullptr;
}

FolderNode* CMailbox::FolderById(std::wstring_view entryId, std::wstring_view storeId) const {
  const auto found = m_foldersById.find(Key(entryId));
  if (found == m_foldersById.end()) return nullptr;
  FolderNode* folder = found->second;
  return storeId.empty() || Key(storeId) == Key(folder->store->storeId) ? folder : nullptr;
}

StoredItemPtr CMailbox::ItemById(std::wstring_view entryId, std::wstring_view storeId) const {
  const auto found = m_itemsById.find(Key(entryId));
  if (found == m_itemsById.end()) return nullptr;
  const FolderNode& folder = *found->second->folder;
  const bool inStore = storeId.empty() || Key(storeId) == Key(folder.store->storeId);
  return inStore ? found->second : nullptr;
}

FolderNode& CMailbox::FolderByPath(std::wstring_view path) const {
  const std::vector<std::wstring_view> steps = Steps(path);
  for (const auto& store : m_stores) {
    FolderNode* folder = store->top.get();
    const size_t start = !steps.empty() && steps.front() == folder->name ? 1 : 0;
    for (size_t step = start; step < steps.size() && folder != nullptr; ++step) {
      folder = ChildByName(*folder, steps[step]);
    }
    if (folder != nullptr && !steps.empty()) return *folder;
  }
  throw CMailboxError("no folder " + Narrow(path));
}

FolderNode& CMailbox::MakePath(std::wstring_view path, ItemType type) {
  FolderNode* folder = DefaultStore().top.get();
  std::vector<std::wstring_view> steps = Steps(path);
  for (const auto& store : m_stores) {
    if (steps.empty() || steps.front() != store->top->name) continue;
    folder = store->top.get();
    steps.erase(steps.begin());
  }
  for (const std::wstring_view step : steps) {
    FolderNode* child = ChildByName(*folder, step);
    folder = child != nullptr ? child : &AddFolder(*folder, std::wstring(step), type);
  }
  return *folder;
}

FolderNode& CMailbox::AddFolder(FolderNode& parent, std::wstring name, ItemType type) {
  auto folder = std::make_unique<FolderNode>();
  folder->name = std::move(name);
  folder->itemType = type;
  folder->store = parent.store;
  folder->parent = &parent;
  folder->entryId = NewEntryId(*parent.store);
  m_foldersById[Key(folder->entryId)] = folder.get();
  parent.folders.push_back(std::move(folder));
  return *parent.folders.back();
}

bool CMailbox::IsBelow(const FolderNode& folder, const FolderNode& ancestor) noexcept {
  const FolderNode* step = &folder;
  while (step != nullptr && step != &ancestor)
    step = step->parent;
  return step != nullptr;
}

void CMailbox::MoveFolder(FolderNode& folder, FolderNode& parent) {
  if (folder.parent == nullptr || IsBelow(parent, folder)) {
    throw CMailboxError("cannot move folder " + Narrow(folder.name));
  }
  auto& siblings = folder.parent->folders;
  const auto place = std::find_if(siblings.begin(), siblings.end(),
                                  [&folder](const auto& one) { return one.get() == &folder; });
  std::unique_ptr<FolderNode> moved = std::move(*place);
  siblings.erase(place);
  folder.parent = &parent;
  parent.folders.push_back(std::move(moved));
  if (folder.store != parent.store || m_entryIdStyle.newOnMove) {
    ForgetIds(folder);
    EnterIds(folder, *parent.store);
  }
}

void CMailbox::ForgetIds(const FolderNode& folder) {
  m_foldersById.erase(Key(folder.entryId));
  for (const auto& item : folder.items)
    m_itemsById.erase(Key(item->entryId));
  for (const auto& child : folder.folders)
    ForgetIds(*child);
}

void CMailbox::EnterIds(FolderNode& folder, Store& store) {
  folder.store = &store;
  folder.entryId = NewEntryId(store);
  m_foldersById[Key(folder.entryId)] = &folder;
  for (const auto& item : folder.items) {
    item->entryId = NewEntryId(store);
    m_itemsById[Key(item->entryId)] = item;
  }
  for (const auto& child : folder.folders)
    EnterIds(*child, store);
}

void CMailbox::RemoveFolder(FolderNode& folder) {
  if (folder.parent == nullptr) throw CMailboxError("cannot remove a store's top folder");
  ForgetIds(folder);
  std::erase_if(folder.parent->folders,
                [&folder](const auto& one) { return one.get() == &folder; });
}

void CMailbox::InsertItem(FolderNode& folder, const StoredItemPtr& item) {
  if (item->entryId.empty()) item->entryId = NewEntryId(*folder.store);
  item->folder = &folder;
  m_itemsById[Key(item->entryId)] = item;
  folder.items.push_back(item);
}

void CMailbox::Detach(StoredItem& item) {
  if (item.folder == nullptr) throw CMailboxError("the item is in no folder");
  FolderNode& folder = *item.folder;
  std::erase_if(folder.items, [&item](const StoredItemPtr& one) { return one.get() == &item; });
  m_itemsById.erase(Key(item.entryId));
  item.folder = nullptr;
}

void CMailbox::MoveItem(const StoredItemPtr& item, FolderNode& folder) {
  const Store* before = item->folder != nullptr ? item->folder->store : nullptr;
  Detach(*item);
  if (before != folder.store || m_entryIdStyle.newOnMove) item->entryId.clear();
  InsertItem(folder, item);
}

void CMailbox::RemoveItem(const StoredItemPtr& item) {
  Detach(*item);
}

size_t CMailbox::ItemCount(const Store& store) const noexcept {
  return CountBelow(*store.top);
}

}  // namespace quor::workbench
