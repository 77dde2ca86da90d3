#ifndef QUOR_CONTACTS_OUTLOOK_SCAN_FOLDER_H
#define QUOR_CONTACTS_OUTLOOK_SCAN_FOLDER_H

#include <functional>
#include <utility>

#include "contacts/scan_folder.h"
#include "outlook/object_model.h"

namespace quor {

// An Outlook folder, for the start-up scan.
class COutlookScanFolder final : public IScanFolder {
 public:
  // ReadsSubfolders calls `readsSubfolders`; what that refers to must outlive this object.
  COutlookScanFolder(CFolder folder, std::function<bool()> readsSubfolders)
      : m_folder(std::move(folder)), m_readsSubfolders(std::move(readsSubfolders)) {}

  bool CountItems(int32_t& count) override;
  bool OpenItems(int32_t& count) override;
  bool RecountItems(int32_t& count) override;
  bool Item(int32_t position, std::shared_ptr<IContactFields>& contact) override;

  bool ReadsSubfolders() override { return m_readsSubfolders(); }
  bool OpenFolders() override;
  bool CountFolders(int32_t& count) override;
  bool LastFolder(std::shared_ptr<IScanFolder>& folder) override;
  bool PreviousFolder(std::shared_ptr<IScanFolder>& folder) override;

 private:
  std::shared_ptr<IScanFolder> Subfolder(CFolder folder) const;

  const CFolder m_folder;
  const std::function<bool()> m_readsSubfolders;
  CItems m_items;
  CFolders m_folders;
};

}  // namespace quor

#endif
