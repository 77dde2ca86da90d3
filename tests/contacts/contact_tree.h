#ifndef QUOR_TESTS_CONTACTS_CONTACT_TREE_H
#define QUOR_TESTS_CONTACTS_CONTACT_TREE_H

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "contacts/scan_folder.h"

namespace quor {

struct TreeItem {
  std::string entryId;
  std::array<std::string, 13> numbers;  // by type
};
using TreeItemPtr = std::shared_ptr<TreeItem>;

struct TreeFolder {
  std::vector<TreeItemPtr> items;
  std::vector<std::shared_ptr<TreeFolder>> folders;
  bool isThere = true;
  int32_t missing = 0;  // items that it counts and that do not open
};
using TreeFolderPtr = std::shared_ptr<TreeFolder>;

// All calls into the tree pass through this.
struct TreeAccess {
  std::function<void()> inside;  // runs while the call pumps messages
  int calls = 0;
  std::shared_ptr<int> held = std::make_shared<int>();  // shared by all folders and contacts

  void Call() {
    ++calls;
    if (inside) inside();
  }
};

// An open contact: each call reads the item's present state, like a new object of Outlook's.
class CTreeContact final : public IContactFields {
 public:
  CTreeContact(TreeAccess& access, TreeItemPtr item) : m_access(access), m_item(std::move(item)) {}

  bool ReadEntryId(std::string& entryId) override {
    m_access.Call();
    entryId = m_item->entryId;
    return true;
  }
  bool Save() override { return true; }
  bool ReadFileAs(std::string&) override {
    m_access.Call();
    return true;
  }
  bool ReadTelNumber(int telNumberType, std::string& number) override {
    const std::string before = m_item->numbers.at(static_cast<size_t>(telNumberType));
    m_access.Call();
    number = before;
    return true;
  }

 private:
  TreeAccess& m_access;
  std::shared_ptr<int> m_held = m_access.held;
  TreeItemPtr m_item;
};

// An open folder. Its collections are live, like Outlook's.
class COpenFolder final : public IScanFolder {
 public:
  COpenFolder(TreeAccess& access, TreeFolderPtr folder)
      : m_access(access), m_folder(std::move(folder)) {}

  bool CountItems(int32_t& count) override {
    m_access.Call();
    count = static_cast<int32_t>(m_folder->items.size()) + m_folder->missing;
    return m_folder->isThere;
  }
  bool OpenItems(int32_t& count) override { return CountItems(count); }
  bool RecountItems(int32_t& count) override { return CountItems(count); }
  bool Item(int32_t position, std::shared_ptr<IContactFields>& contact) override {
    m_access.Call();
    const auto index = static_cast<size_t>(position - 1);
    if (!m_folder->isThere || index >= m_folder->items.size()) return false;
    contact = std::make_shared<CTreeContact>(m_access, m_folder->items[index]);
    return true;
  }

  bool ReadsSubfolders() override { return true; }
  bool OpenFolders() override {
    m_access.Call();
    return m_folder->isThere;
  }
  bool CountFolders(int32_t& count) override {
    m_access.Call();
    count = static_cast<int32_t>(m_folder->folders.size());
    return m_folder->isThere;
  }
  bool LastFolder(std::shared_ptr<IScanFolder>& folder) override {
    m_cursor = m_folder->folders.size();
    return PreviousFolder(folder);
  }
  bool PreviousFolder(std::shared_ptr<IScanFolder>& folder) override {
    m_access.Call();
    m_cursor = std::min(m_cursor, m_folder->folders.size());
    folder = nullptr;
    if (m_cursor == 0) return true;
    folder = std::make_shared<COpenFolder>(m_access, m_folder->folders[--m_cursor]);
    return true;
  }

 private:
  TreeAccess& m_access;
  std::shared_ptr<int> m_held = m_access.held;
  TreeFolderPtr m_folder;
  size_t m_cursor = 0;
};

}  // namespace quor

#endif
