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
#include "contacts/phone_number_index.h"
#include "contacts/tracked_folders.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// The contact folders that the index follows: Outlook's default contacts folder and all folders
// below it. One CContactItems listens to each. When Outlook fails a call, the failure is logged and
// the walk of that folder ends; the index keeps its contents.
class CContactFolders final : public IContactFolderEvents {
 public:
  // All must outlive this object; the application may still be empty at construction.
  CContactFolders(const COutlookApplication& application, CTrackedFolders& tracked,
                  CPhoneNumberIndex& index, IContactScanHost& host, IEventOwner& owner,
                  CDiagnosticLog& log) noexcept
      : m_application(application),
        m_tracked(tracked),
        m_index(index),
        m_owner(owner),
        m_log(log),
        m_scan(index, host, log) {}

  // Start-up: listens to the folder tree. Throws _com_error if the default folder is not available.
  void CreateRetrieve();
  // Starts the full scan, once per start, and works its first slice. Throws _com_error if the
  // default folder is not available.
  void CreateContact();
  // Works the next slice, if a scan is running.
  void ContinueScan() { m_scan.Continue(); }
  // Finishes a running scan at once, for a look-up that cannot wait.
  void FinishScan() noexcept;
  // Ends a running scan; what was read stays indexed.
  void StopScan() noexcept;
  bool IsScanning() const noexcept { return m_scan.IsRunning(); }
  const CContactScan& Scan() const noexcept { return m_scan; }

  HRESULT RegisterContactFolder(const CFolder& folder);
  HRESULT UnregisterContactFolder(const CFolder& folder);

  // Items and folders that arrive in Deleted Items, and folders that leave it.
  void OnDeleteItemAdd(IDispatch* item);
  void OnDeleteFolderAdd(IDispatch* folder);
  void OnDeleteFolderRemove(const CFolder& deletedItems);

  // Stops listening; logs nothing.
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
  CTrackedFolders& m_tracked;
  CPhoneNumberIndex& m_index;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;

  std::map<std::wstring, std::shared_ptr<CContactItems>> m_inspContItems;  // by folder entry ID
  CContactScan m_scan;
};

}  // namespace quor

#endif
