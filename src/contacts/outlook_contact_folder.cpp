#include "contacts/outlook_contact_folder.h"

#include "contacts/outlook_contact.h"

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

bool COutlookContactFolder::CountItems(int32_t& count) {
  return Succeeds([&] { count = m_folder.Items().Count(); });
}

bool COutlookContactFolder::OpenItems(int32_t& count) {
  return Succeeds([&] {
    m_folder.EntryId();
    m_folder.Name();
    const CItems items = m_folder.Items();
    m_items = items;
    count = items.Count();
  });
}

bool COutlookContactFolder::RecountItems(int32_t& count) {
  const CItems items = m_items;
  return Succeeds([&] { count = items.Count(); });
}

bool COutlookContactFolder::Item(int32_t position, std::shared_ptr<IContactItem>& contact) {
  const CItems items = m_items;
  IDispatchPtr item;
  if (!Succeeds([&] { item = items.Item(position); }) || !item) return false;
  if (CContactItem found = QueryObject<CContactItem>(item)) {
    contact = std::make_shared<COutlookContact>(std::move(found));
  }
  return true;
}

bool COutlookContactFolder::OpenFolders() {
  return Succeeds([&] { m_folders = m_folder.Folders(); });
}

bool COutlookContactFolder::CountFolders(int32_t& count) {
  const CFolders folders = m_folders;
  return Succeeds([&] { count = folders.Count(); });
}

bool COutlookContactFolder::LastFolder(std::shared_ptr<IScanFolder>& folder) {
  const CFolders folders = m_folders;
  return Succeeds([&] { folder = Subfolder(folders.GetLast()); });
}

bool COutlookContactFolder::PreviousFolder(std::shared_ptr<IScanFolder>& folder) {
  const CFolders folders = m_folders;
  return Succeeds([&] { folder = Subfolder(folders.GetPrevious()); });
}

std::shared_ptr<IScanFolder> COutlookContactFolder::Subfolder(CFolder folder) const {
  if (!folder) return nullptr;
  return std::make_shared<COutlookContactFolder>(std::move(folder), m_readsSubfolders);
}

}  // namespace quor
