#ifndef QUOR_CONTACTS_TRACKED_FOLDERS_H
#define QUOR_CONTACTS_TRACKED_FOLDERS_H

#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "outlook/object_model.h"

namespace quor {

// Entry IDs of the folders that the index follows: the default contacts folder and all folders
// below it, without the contact folders in Deleted Items.
class CTrackedFolders {
 public:
  // The default folder found at start-up.
  void SetContactsFolder(std::wstring entryId) { m_contactsId = std::move(entryId); }

  void AddDeleted(std::wstring entryId) { m_deleted.insert(std::move(entryId)); }
  void RemoveDeleted(const std::wstring& entryId) { m_deleted.erase(entryId); }
  const std::set<std::wstring>& Deleted() const noexcept { return m_deleted; }

  // Whether the folder is the default contacts folder (by entry ID) or lies below it. Calls into
  // Outlook; false if it fails a call.
  bool CheckContactsFolder(IDispatch* folder, std::wstring_view defaultFolderId) const;
  // The same, with the default folder found at start-up.
  bool IsTracked(IDispatch* folder) const { return CheckContactsFolder(folder, m_contactsId); }

 private:
  std::wstring m_contactsId;
  std::set<std::wstring> m_deleted;
};

}  // namespace quor

#endif
