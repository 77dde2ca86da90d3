#include "contacts/outlook_scan_folder.h"

#include "contacts/outlook_contact_fields.h"

namespace quor {
namespace {

template <typename Operation>
bool Succeeds(Operation operation) {
  try {
    operation();
    return true;
  } catch (const _com_error&) {
    return false;
  }
}

}  // namespace

// Each call uses a copy of the collection: a second walk inside the call may replace the member.

bool COutlookScanFolder::CountItems(int32_t& count) {
  return Succeeds([&] { count = m_folder.Items().Count(); });
}

bool COutlookScanFolder::OpenItems(int32_t& count) {
  return Succeeds([&] {
    m_folder.EntryId();
    m_folder.Name();
    const CItems items = m_folder.Items();
    m_items = items;
    count = items.Count();
  });
}

bool COutlookScanFolder::RecountItems(int32_t& count) {
  const CItems items = m_items;
  return Succeeds([&] { count = items.Count(); });
}

bool COutlookScanFolder::Item(int32_t position, std::shared_ptr<IContactFields>& contact) {
  const CItems items = m_items;
  IDispatchPtr item;
  if (!Succeeds([&] { item = items.Item(position); }) || !item) return false;
  if (auto found = QueryObject<CContactItem>(item)) {
    contact = std::make_shared<COutlookContactFields>(std::move(found));
  }
  return true;
}

bool COutlookScanFolder::OpenFolders() {
  return Succeeds([&] { m_folders = m_folder.Folders(); });
}

bool COutlookScanFolder::CountFolders(int32_t& count) {
  const CFolders folders = m_folders;
  return Succeeds([&] { count = folders.Count(); });
}

bool COutlookScanFolder::LastFolder(std::shared_ptr<IScanFolder>& folder) {
  const CFolders folders = m_folders;
  return Succeeds([&] { folder = Subfolder(folders.GetLast()); });
}

bool COutlookScanFolder::PreviousFolder(std::shared_ptr<IScanFolder>& folder) {
  const CFolders folders = m_folders;
  return Succeeds([&] { folder = Subfolder(folders.GetPrevious()); });
}

std::shared_ptr<IScanFolder> COutlookScanFolder::Subfolder(CFolder folder) const {
  if (!folder) return nullptr;
  return std::make_shared<COutlookScanFolder>(std::move(folder), m_readsSubfolders);
}

}  // namespace quor
