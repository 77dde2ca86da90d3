#ifndef QUOR_CONTACTS_CONTACT_FOLDERS_H
#define QUOR_CONTACTS_CONTACT_FOLDERS_H

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "contacts/contact_items.h"
#include "contacts/contact_scan.h"
#include "contacts/folder_walk_lines.h"
#include "contacts/outlook_contact_directory.h"
#include "contacts/phone_number_index.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// The contact folders that the index follows: Outlook's default contacts folder and everything
// beneath it. One CContactItems listens to each. A failure of Outlook is logged and ends the walk
// of the folder it happened in; the index keeps what it has.
class CContactFolders final : public IContactItemEvents, public ITrackedFolders {
 public:
  // All must outlive the folders; the application may still be empty at construction.
  CContactFolders(const COutlookApplication& application, CPhoneNumberIndex& index,
                  IContactScanHost& host, IEventOwner& owner, CDiagnosticLog& log) noexcept
      : m_application(application),
        m_index(index),
        m_owner(owner),
        m_log(log),
        m_scan(index, host, log) {}

  // Start-up: listens to the folder tree. Throws _com_error when the default folder cannot be had.
  void CreateRetrieve();
  // The full scan, once per start: its first slice. Throws _com_error when the default folder
  // cannot be had.
  void CreateContact();
  // The next slice, if one is left to do.
  void ContinueScan() { m_scan.Continue(); }
  // The rest of a scan that is under way, at once: a look-up must not wait for it.
  void FinishScan() noexcept;
  // Ends a scan that is under way; what was read stays indexed.
  void StopScan() noexcept;
  bool IsScanning() const noexcept { return m_scan.IsRunning(); }
  const CContactScan& Scan() const noexcept { return m_scan; }

  HRESULT RegisterContactFolder(const CFolder& folder);
  HRESULT UnregisterContactFolder(const CFolder& folder);
  // Whether the folder is the default contacts folder (of that entry ID) or lies beneath it.
  bool CheckContactsFolder(IDispatch* folder, std::wstring_view defaultFolderId) const;

  // The same against the default folder found at start-up.
  bool IsTracked(IDispatch* folder) override { return CheckContactsFolder(folder, m_contactsId); }

  // What arrives in, and leaves, Deleted Items.
  void OnDeleteItemAdd(IDispatch* item);
  void OnDeleteFolderAdd(IDispatch* folder);
  void OnDeleteFolderRemove(const CFolder& deletedItems);

  // Stops listening, without a word to the log.
  void UnregisterAll() noexcept;

 private:
  using VisitFolder = std::function<HRESULT(const CFolder&)>;

  void OnContactChanged(IDispatch* item) override;
  void OnSubfolderAdded(IDispatch* folder) override;
  void OnPositionsChanged() override { m_scan.OnPositionsChanged(); }

  HRESULT Register(const CFolder& folder, const FolderWalkLines& lines);
  HRESULT ListenTo(const CFolder& folder, const FolderWalkLines& lines, CFolders& folders);
  HRESULT WalkSubfolders(const CFolder& folder, const FolderWalkLines& lines,
                         const VisitFolder& visit);
  HRESULT WalkSubfolders(const CFolders& folders, const FolderWalkLines& lines,
                         const VisitFolder& visit);
  CFolder DefaultFolder() const;
  HRESULT Attempt(const char* line, const std::function<void()>& call) const;

  const COutlookApplication& m_application;
  CPhoneNumberIndex& m_index;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;

  std::wstring m_contactsId;
  std::map<std::wstring, std::shared_ptr<CContactItems>> m_inspContItems;  // by folder entry ID
  std::set<std::wstring> m_deletedFolders;  // contact folders seen in Deleted Items
  CContactScan m_scan;
};

}  // namespace quor

#endif
