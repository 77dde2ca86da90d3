#ifndef QUOR_CONTACTS_CONTACT_SCAN_H
#define QUOR_CONTACTS_CONTACT_SCAN_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contacts/contact_item.h"
#include "contacts/folder_walk_lines.h"
#include "contacts/phone_number_index.h"
#include "contacts/read_contacts.h"
#include "contacts/scan_folder.h"
#include "module/diagnostic_log.h"

namespace quor {

// What the scan asks of the add-in. None of it throws.
class IContactScanHost {
 public:
  // True once Outlook quits, closes its last window or disconnects the add-in: the scan ends after
  // the call that it has just made.
  virtual bool MustStop() noexcept = 0;
  // True when the time of the current slice is used up. Asked after every call into Outlook.
  virtual bool IsSliceOver() noexcept = 0;
  virtual void ShowLoading() noexcept = 0;
  // Posts the message that closes the loading window; false when it cannot be posted.
  virtual bool PostCloseLoading() noexcept = 0;

 protected:
  ~IContactScanHost() = default;
};

// The start-up scan: counts the items of a folder tree, reads its contacts and enters their numbers
// into the index. It works in slices, between which Outlook handles its messages; whatever happens
// there, the index ends up as one uninterrupted scan of the final state would leave it.
//
// A pass over the tree notes the contacts in walk order and what was read of each. Events, or item
// counts that differ from those noted, mean that positions may have moved: another pass follows,
// which reads no contact again that is known by its entry ID, and is therefore short. After a pass
// without such a sign the contacts are entered, all at once. Contacts that Outlook reports changed
// meanwhile are read when it does; one that the walk does not reach is entered last.
//
// Not noticed: what Outlook does not report, where it leaves the number of a folder's items as it
// was, or happens while the numbers of a very large tree are compared at the end.
class CContactScan {
 public:
  // Most contacts indexed at start-up; later ones are indexed when Outlook reports a change.
  static constexpr int32_t kScanLimit = 5000;
  // A tree of so many items, of whatever type, shows the loading window.
  static constexpr int64_t kLoadingThreshold = 100;
  // So many items in a row that cannot be opened end the walk through the folder's items.
  static constexpr int kMostFailures = 100;
  // After so many disturbed passes one more is made in one go, and counts whatever happens.
  static constexpr int kMostPasses = 8;

  // All must outlive the scan.
  CContactScan(CPhoneNumberIndex& index, IContactScanHost& host, CDiagnosticLog& log) noexcept
      : m_index(index), m_host(host), m_log(log) {}
  CContactScan(const CContactScan&) = delete;
  CContactScan& operator=(const CContactScan&) = delete;

  // Begins a scan and works one slice; a scan under way is dropped. A failure (out of memory) ends
  // the scan and is thrown.
  void Begin(std::shared_ptr<IScanFolder> root);
  // Works one more slice. Nothing inside a slice, or without a scan under way.
  void Continue();
  // Does all that is left, and logs that it does.
  void FinishNow();
  // Ends a scan between slices and releases everything of Outlook's; what was read stays indexed. A
  // slice under way sees it by itself, see MustStop.
  void Stop();

  // Contacts read so far, of all scans; items of whatever type in the tree of the last one.
  int32_t ScannedContacts() const noexcept { return m_scanned; }
  int64_t CountedItems() const noexcept { return m_itemCount; }
  // Whether that pass left contacts out.
  bool EndedAtLimit() const noexcept { return m_endedAtLimit; }

  // From the beginning of the first slice to the end of the last.
  bool IsRunning() const noexcept { return m_stage != Stage::Idle; }

  // The following are for a scan under way.
  void OnPositionsChanged() noexcept { m_disturbed = true; }
  // CPhoneNumberIndex::TelNoCheckAndUpdate, put off to the end of the scan.
  void TelNoCheckAndUpdate(IContactItem& contact);
  void OnContactItemDelete(IContactItem& contact);

 private:
  enum class Stage { Idle, Counting, Reading, Comparing, Entering };
  enum class Next { Items, Item, Folders, FolderCount, LastFolder, PreviousFolder };
  enum class Part { Id, Name, Number };

  // A folder on the way from the root to where the walk is.
  struct Level {
    std::shared_ptr<IScanFolder> folder;
    Next next = Next::Items;
    int32_t items = 0;
    int32_t position = 0;  // the last item that was asked for
    int failures = 0;      // in a row
    bool inLastFolder = false;
  };

  void BeginSlice() noexcept;
  void Run(bool inSlices);
  void Step();
  template <typename Operation>
  std::optional<bool> Call(Operation operation);

  void StepInto();
  void TakeItemCount(int32_t count);
  void StepToItem();
  void StepInContact();
  void StepInNumbers(IContactItem& item);
  void StepToFolders();
  void StepToFolderCount();
  void StepToSubfolder(bool last);
  bool IsAmongItems() const noexcept;
  void Recount();

  void BeginCount();
  void BeginPass();
  void BeginWalk(Stage stage);
  void FailWalk(const char* line);
  void LeaveFolder();
  void EndWalk();
  void EndPass();
  void EndComparison(bool same);
  bool IsLastPass() const noexcept { return m_pass > kMostPasses; }

  void TakeContact();
  void Visit(ReadContact& contact);
  void SkipContact();
  void Report(uint32_t serial, ReadContact contact);

  const FolderWalkLines& Lines() const noexcept;
  void NoteFailure(const char* line);
  void End(bool stopped);
  void Abandon() noexcept;
  void Forget() noexcept;
  void EnterAll(bool stopped);
  void Enter(const ReadContact& contact);

  CPhoneNumberIndex& m_index;
  IContactScanHost& m_host;
  CDiagnosticLog& m_log;

  Stage m_stage = Stage::Idle;
  uint32_t m_run = 0;  // changes when another run takes the scan over inside a call of this one
  int m_runsUnderWay = 0;
  uint32_t m_slice = 0;
  bool m_recountDue = false;
  bool m_pauseDue = false;

  std::shared_ptr<IScanFolder> m_root;
  std::vector<Level> m_levels;
  int64_t m_itemCount = 0;
  int32_t m_scanned = 0;  // never reset
  int32_t m_scannedBefore = 0;

  // The pass under way.
  uint32_t m_pass = 0;
  uint32_t m_firstSlice = 0;            // in which it began
  bool m_disturbed = false;             // positions may have moved
  bool m_cutShort = false;              // it ended before the end of the tree
  bool m_endedAtLimit = false;          // more contacts than are read
  bool m_hasGaps = false;               // an item or contact could not be read
  std::vector<ReadContact*> m_visited;  // in walk order
  std::vector<int32_t> m_itemCounts;    // of each folder
  std::vector<const char*> m_failures;  // what the log will say
  size_t m_compared = 0;                // of m_itemCounts

  std::shared_ptr<IContactItem> m_contact;  // the one that is being read
  Part m_part = Part::Id;
  ReadContact m_reading;
  int m_nextType = kFirstTelNumberType;

  CReadContacts m_read;
  uint32_t m_reports = 0;
};

}  // namespace quor

#endif
