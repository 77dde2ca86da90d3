#ifndef QUOR_CONTACTS_CONTACT_FOLDERS_H
#define QUOR_CONTACTS_CONTACT_FOLDERS_H

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "contacts/contact_items.h"
#include "contacts/outlook_contact_directory.h"
#include "contacts/phone_number_index.h"
#include "module/diagnostic_log.h"
#include "outlook/object_model.h"

namespace quor {

// What a long scan asks of the add-in. None of it throws.
class IContactScan {
 public:
  // True once Outlook quits or lets go of the add-in: the scan ends as soon as it sees it.
  virtual bool MustStop() noexcept = 0;
  virtual void ShowLoading() = 0;
  // Lets the loading window paint itself; called between contacts.
  virtual void RepaintLoading() = 0;
  // Posts the message that closes the loading window; false when it cannot be posted.
  virtual bool PostCloseLoading() noexcept = 0;

 protected:
  ~IContactScan() = default;
};

// The contact folders that the index follows: Outlook's default contacts folder and everything
// beneath it. One CContactItems listens to each. A failure of Outlook is logged and ends the walk
// of the folder it happened in; the index keeps what it has.
class CContactFolders final : public IContactItemEvents, public ITrackedFolders {
 public:
  // At most so many contacts are indexed at start-up; later ones when Outlook reports a change.
  static constexpr int32_t kScanLimit = 5000;
  // A tree of so many items, of whatever type, shows the loading window.
  static constexpr int32_t kLoadingThreshold = 100;

  // All must outlive the folders; the application may still be empty at construction.
  CContactFolders(const COutlookApplication& application, CPhoneNumberIndex& index,
                  IContactScan& scan, IEventOwner& owner, CDiagnosticLog& log) noexcept
      : m_application(application), m_index(index), m_scan(scan), m_owner(owner), m_log(log) {}

  // Start-up: listens to the folder tree. Throws _com_error when the default folder cannot be had.
  void CreateRetrieve();
  // The full scan, once per start.
  void CreateContact();

  HRESULT RegisterContactFolder(const CFolder& folder);
  HRESULT UnregisterContactFolder(const CFolder& folder);
  HRESULT CollectContactItems(const CFolder& folder);
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
  // The log's words for the failures of one walk over subfolders; null says nothing.
  struct WalkLines;
  using VisitFolder = std::function<HRESULT(const CFolder&)>;

  void OnContactChanged(IDispatch* item) override;
  void OnSubfolderAdded(IDispatch* folder) override;

  HRESULT Register(const CFolder& folder, const WalkLines& lines);
  HRESULT ListenTo(const CFolder& folder, const WalkLines& lines, CFolders& folders);
  HRESULT WalkSubfolders(const CFolder& folder, const WalkLines& lines, const VisitFolder& visit);
  HRESULT WalkSubfolders(const CFolders& folders, const WalkLines& lines, const VisitFolder& visit);
  HRESULT CountItems(const CFolder& folder, int64_t& count);
  HRESULT CollectItems(const CFolder& folder);
  bool CollectContact(const CContactItem& item);
  CFolder DefaultFolder() const;
  HRESULT Attempt(const char* line, const std::function<void()>& call) const;

  const COutlookApplication& m_application;
  CPhoneNumberIndex& m_index;
  IContactScan& m_scan;
  IEventOwner& m_owner;
  CDiagnosticLog& m_log;

  std::wstring m_contactsId;
  std::map<std::wstring, std::shared_ptr<CContactItems>> m_inspContItems;  // by folder entry ID
  std::set<std::wstring> m_deletedFolders;  // contact folders seen in Deleted Items
  int32_t m_scanned = 0;
};

}  // namespace quor

#endif
