#ifndef QUOR_WORKBENCH_OFFICE_MAILBOX_H
#define QUOR_WORKBENCH_OFFICE_MAILBOX_H

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quor::workbench {

class CItem;
class CFolder;
class CItems;
class CFolders;

// OlItemType, for the supported folders and items.
enum class ItemType {
  Mail = 0,
  Appointment = 1,
  Contact = 2,
  Task = 3,
  Journal = 4,
  Note = 5,
  DistributionList = 7,
};

// The folder, item or store does not exist, or the operation is not possible.
class CMailboxError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Text properties by dispatch id; an absent one is empty.
class CFieldSet {
 public:
  const std::wstring* Find(int32_t id) const noexcept;
  std::wstring Get(int32_t id) const;
  void Set(int32_t id, std::wstring text);
  const std::vector<std::pair<int32_t, std::wstring>>& All() const noexcept { return m_fields; }
  void Clear() noexcept { m_fields.clear(); }

 private:
  std::vector<std::pair<int32_t, std::wstring>> m_fields;
};

struct FolderNode;
struct Store;

// An item as stored. Its COM object is created on demand.
struct StoredItem {
  ItemType type = ItemType::Contact;
  std::wstring entryId;  // hexadecimal digits; empty until saved
  CFieldSet fields;
  std::vector<std::wstring> links;  // of a journal entry: the contacts' File As
  FolderNode* folder = nullptr;     // null if deleted permanently or not yet saved
  CItem* object = nullptr;          // the last live object or null
};
using StoredItemPtr = std::shared_ptr<StoredItem>;

struct FolderNode {
  std::wstring entryId;
  std::wstring name;
  ItemType itemType = ItemType::Mail;
  Store* store = nullptr;
  FolderNode* parent = nullptr;  // null for a store's top folder
  std::vector<std::unique_ptr<FolderNode>> folders;
  std::vector<StoredItemPtr> items;

  // Live objects for this folder; the collections raise its events.
  std::vector<CFolder*> objects;
  std::vector<CItems*> itemCollections;
  std::vector<CFolders*> folderCollections;
};

struct Store {
  std::wstring storeId;
  std::wstring uid;  // 32 digits within every entry id of the store
  std::unique_ptr<FolderNode> top;
  FolderNode* contacts = nullptr;
  FolderNode* deletedItems = nullptr;
  uint32_t lastNode = 0x20;
};

struct EntryIdStyle {
  bool newOnMove = false;  // also within a store, as for some store providers
  bool lowerCase = false;
  size_t digits = 48;  // at least 48; 140 as in Exchange
};

// The stores with their folders and items: plain data, no events. Ids are consecutive numbers, so
// the same book loaded twice has the same ids.
class CMailbox {
 public:
  explicit CMailbox(int version);

  // Applies to ids assigned from now on.
  void SetEntryIdStyle(const EntryIdStyle& style) noexcept { m_entryIdStyle = style; }
  // The store has its own Contacts and Deleted Items folders.
  void AddSecondaryStore(std::wstring name);

  std::vector<std::unique_ptr<Store>>& Stores() noexcept { return m_stores; }
  const std::vector<std::unique_ptr<Store>>& Stores() const noexcept { return m_stores; }
  Store& DefaultStore() const noexcept { return *m_stores.front(); }

  FolderNode* DefaultFolder(long olDefaultFolder) const noexcept;  // null: no such folder
  // Compares ids without regard to case. An empty store id means any store.
  FolderNode* FolderById(std::wstring_view entryId, std::wstring_view storeId) const;
  StoredItemPtr ItemById(std::wstring_view entryId, std::wstring_view storeId) const;

  // "Contacts/Friends" below the default store's top folder, or with the store's name in front.
  // Throws CMailboxError if it does not exist.
  FolderNode& FolderByPath(std::wstring_view path) const;
  FolderNode& MakePath(std::wstring_view path, ItemType type);  // creates missing folders

  FolderNode& AddFolder(FolderNode& parent, std::wstring name, ItemType type);
  void MoveFolder(FolderNode& folder,
                  FolderNode& parent);    // throws if `parent` lies inside `folder`
  void RemoveFolder(FolderNode& folder);  // permanently, with its contents

  void InsertItem(FolderNode& folder, const StoredItemPtr& item);  // assigns the id if it has none
  void MoveItem(const StoredItemPtr& item, FolderNode& folder);
  void RemoveItem(const StoredItemPtr& item);  // permanently

  size_t ItemCount(const Store& store) const noexcept;
  static bool IsBelow(const FolderNode& folder, const FolderNode& ancestor) noexcept;

 private:
  Store& AddStore(std::wstring name);
  FolderNode& AddDefault(Store& store, long id, const wchar_t* name, ItemType type);
  std::wstring NewEntryId(Store& store);
  void Detach(StoredItem& item);
  void ForgetIds(const FolderNode& folder);
  void EnterIds(FolderNode& folder, Store& store);
  static std::wstring Key(std::wstring_view entryId);

  EntryIdStyle m_entryIdStyle;
  std::vector<std::unique_ptr<Store>> m_stores;
  std::vector<std::pair<long, FolderNode*>> m_defaults;
  std::unordered_map<std::wstring, FolderNode*> m_foldersById;
  std::unordered_map<std::wstring, StoredItemPtr> m_itemsById;
};

}  // namespace quor::workbench

#endif
