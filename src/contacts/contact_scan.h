#ifndef QUOR_CONTACTS_CONTACT_SCAN_H
#define QUOR_CONTACTS_CONTACT_SCAN_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contacts/contact_fields.h"
#include "contacts/folder_walk_lines.h"
#include "contacts/phone_number_index.h"
#include "contacts/read_contacts.h"
#include "contacts/scan_folder.h"
#include "module/diagnostic_log.h"

namespace quor {

// What the scan needs from the add-in. None of it throws.
class IContactScanHost {
 public:
  // True once Outlook quits, closes its last window or disconnects the add-in. The scan then ends
  // as soon as the current call returns.
  virtual bool MustStop() noexcept = 0;
  // True when the current slice has used up its time. Asked after every call into Outlook.
  virtual bool IsSliceOver() noexcept = 0;
  virtual void ShowLoading() noexcept = 0;
  // Posts the message that closes the loading window; false if posting fails.
  virtual bool PostCloseLoading() noexcept = 0;

 protected:
  ~IContactScanHost() = default;
};

// The start-up scan: counts the items of a folder tree, reads its contacts and enters their numbers
// into the index. It works in slices; Outlook handles its messages between them. Whatever changes
// meanwhile, the index ends up as one uninterrupted scan of the final state would leave it.
//
// A pass over the tree records the contacts in walk order and the numbers read from each. An event,
// or an item count that differs from the recorded one, means that positions may have changed;
// another pass then follows. It is short, because it does not read contacts with a known entry ID
// again. After an undisturbed pass all contacts enter the index. A contact that Outlook reports as
// changed is read when the event arrives; if the walk does not reach it, it is entered last. Events
// that arrive while contacts enter belong to the time after the scan.
//
// Three kinds of change are missed: those that Outlook does not report, those that leave a folder's
// item count the same, and those made while the counts of a very large tree are compared at the
// end.
class CContactScan {
 public:
  // Most contacts indexed at start-up; later ones are indexed when Outlook reports a change.
  static constexpr int32_t kScanLimit = 5000;
  // The loading window is shown for a tree of at least this many items, of any type.
  static constexpr int64_t kLoadingThreshold = 100;
  // A folder's walk ends after this many items in a row that cannot be opened.
  static constexpr int kMostFailures = 100;
  // After this many disturbed passes, one more runs without a pause and counts in any case.
  static constexpr int kMostPasses = 8;

  // All must outlive the scan.
  CContactScan(CPhoneNumberIndex& index, IContactScanHost& host, CDiagnosticLog& log) noexcept
      : m_index(index), m_host(host), m_log(log) {}
  CContactScan(const CContactScan&) = delete;
  CContactScan& operator=(const CContactScan&) = delete;

  // Starts a scan and works one slice; a running scan is dropped. Running out of memory ends the
  // scan and is thrown.
  void Begin(std::shared_ptr<IScanFolder> root);
  // Works one more slice. Does nothing inside a slice or when no scan is running.
  void Continue();
  // Does all remaining work at once, and logs it.
  void FinishNow();
  // Ends a scan between slices and releases all Outlook objects; what was read stays indexed. A
  // slice that is running ends through MustStop instead.
  void Stop();

  // Contacts read so far by all scans; items of any type in the tree of the last scan.
  int32_t ScannedContacts() const noexcept { return m_scanned; }
  int64_t CountedItems() const noexcept { return m_itemCount; }
  // Whether the last pass left out contacts because of kScanLimit.
  bool EndedAtLimit() const noexcept { return m_endedAtLimit; }

  // True from the beginning of the first slice to the end of the last.
  bool IsRunning() const noexcept { return m_stage != Stage::Idle; }

  // True while the contacts enter the index. Before an event is handled then, FinishEntering must
  // enter the rest and end the scan: the event changes the index itself.
  bool IsEntering() const noexcept { return m_stage == Stage::Entering; }
  void FinishEntering();
  // Call these only while a scan is running.
  void OnPositionsChanged() noexcept { m_disturbed = true; }
  // As CPhoneNumberIndex::TelNoCheckAndUpdate, but entered at the end of the scan.
  void TelNoCheckAndUpdate(IContactFields& contact);
  void OnContactItemDelete(IContactFields& contact);

 private:
  enum class Stage { Idle, Counting, Reading, Comparing, Entering };
  enum class Next { Items, Item, Folders, FolderCount, LastFolder, PreviousFolder };
  enum class Part { Id, Name, Number };

  // A folder on the path from the root to the walk's current folder.
  struct Level {
    std::shared_ptr<IScanFolder> folder;
    Next next = Next::Items;
    int32_t items = 0;
    int32_t position = 0;  // the last item asked for
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
  void StepInNumbers(IContactFields& item);
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
  void BeginEntering();
  void CollectToEnter(bool stopped);
  void StepInEntering();
  void EnterNext();
  void EnterRest();
  void Enter(const ReadContact& contact);

  CPhoneNumberIndex& m_index;
  IContactScanHost& m_host;
  CDiagnosticLog& m_log;

  Stage m_stage = Stage::Idle;
  uint32_t m_run = 0;  // changes when another run takes over the scan inside a call
  int m_runsUnderWay = 0;
  uint32_t m_slice = 0;
  bool m_recountDue = false;
  bool m_pauseDue = false;

  std::shared_ptr<IScanFolder> m_root;
  std::vector<Level> m_levels;
  int64_t m_itemCount = 0;
  int32_t m_scanned = 0;  // never reset
  int32_t m_scannedBefore = 0;

  // State of the current pass.
  uint32_t m_pass = 0;
  uint32_t m_firstSlice = 0;            // slice in which it began
  bool m_disturbed = false;             // positions may have changed
  bool m_cutShort = false;              // ended before the end of the tree
  bool m_endedAtLimit = false;          // the tree has more contacts than kScanLimit
  bool m_hasGaps = false;               // an item or contact could not be read
  std::vector<ReadContact*> m_visited;  // in walk order
  std::vector<int32_t> m_itemCounts;    // of each folder
  std::vector<const char*> m_failures;  // lines to log
  size_t m_compared = 0;                // number of m_itemCounts compared
  std::vector<const ReadContact*> m_toEnter;
  size_t m_entered = 0;  // number of m_toEnter entered

  std::shared_ptr<IContactFields> m_contact;  // the contact being read
  Part m_part = Part::Id;
  ReadContact m_reading;
  int m_nextType = kFirstTelNumberType;

  CReadContacts m_read;
  uint32_t m_reports = 0;
};

}  // namespace quor

#endif
