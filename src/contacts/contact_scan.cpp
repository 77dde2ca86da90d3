#include "contacts/contact_scan.h"

#include <utility>

namespace quor {
void CContactScan::Begin(std::shared_ptr<IScanFolder> root) {
  m_root = std::move(root);
  m_read = {};
  m_pass = 0;
  m_scannedBefore = m_scanned;
  BeginSlice();
  BeginCount();
  Run(true);
}

void CContactScan::Continue() {
  if (!IsRunning() || m_runsUnderWay > 0) return;
  BeginSlice();
  Run(true);
}

void CContactScan::BeginSlice() noexcept {
  ++m_slice;
  m_recountDue = true;
  m_pauseDue = false;
}

void CContactScan::FinishNow() {
  if (!IsRunning()) return;
  m_log.Write("Create Contact Finish Now\n");
  if (m_runsUnderWay == 0) {
    BeginSlice();
  } else if (m_stage == Stage::Counting) {
    // A call of the running walk is on the stack and may or may not have taken effect, so start the
    // walk again.
    BeginCount();
  } else {
    BeginPass();
  }
  Run(false);
}

void CContactScan::Stop() {
  if (IsRunning() && m_runsUnderWay == 0) End(true);
}

void CContactScan::Run(bool inSlices) {
  const uint32_t run = ++m_run;
  ++m_runsUnderWay;
  try {
    while (m_run == run && IsRunning()) {
      if (m_host.MustStop()) {
        End(true);
        break;
      }
      const bool recounts = m_recountDue && IsAmongItems();
      Step();
      // A recount alone is no progress, and in a slow store it may take as long as a slice.
      const bool mayPause = inSlices && !recounts && !IsLastPass() && !m_host.MustStop();
      if (mayPause && (std::exchange(m_pauseDue, false) || m_host.IsSliceOver())) break;
    }
  } catch (...) {
    --m_runsUnderWay;
    if (m_run == run && IsRunning()) Abandon();
    throw;
  }
  --m_runsUnderWay;
}

// Makes one call into Outlook. Returns nothing if another run took the scan over inside it.
template <typename Operation>
std::optional<bool> CContactScan::Call(Operation operation) {
  const uint32_t run = m_run;
  const bool succeeded = operation();
  return m_run == run ? std::optional(succeeded) : std::nullopt;
}

void CContactScan::Step() {
  if (m_stage == Stage::Entering) return StepInEntering();
  if (std::exchange(m_recountDue, false) && IsAmongItems()) return Recount();
  if (m_contact) return StepInContact();
  switch (m_levels.back().next) {
    case Next::Items:
      return StepInto();
    case Next::Item:
      return StepToItem();
    case Next::Folders:
      return StepToFolders();
    case Next::FolderCount:
      return StepToFolderCount();
    case Next::LastFolder:
      return StepToSubfolder(true);
    case Next::PreviousFolder:
      return StepToSubfolder(false);
  }
}

void CContactScan::StepInto() {
  const std::shared_ptr<IScanFolder> folder = m_levels.back().folder;
  const bool reading = m_stage == Stage::Reading;
  int32_t count = 0;
  const std::optional<bool> counted =
      Call([&] { return reading ? folder->OpenItems(count) : folder->CountItems(count); });
  if (!counted) return;
  if (!*counted) return FailWalk(nullptr);
  m_levels.back().next = reading ? Next::Item : Next::Folders;
  TakeItemCount(count);
}

void CContactScan::TakeItemCount(int32_t count) {
  switch (m_stage) {
    case Stage::Counting:
      m_itemCount += count;
      break;
    case Stage::Reading:
      m_levels.back().items = count;
      m_itemCounts.push_back(count);
      break;
    default:
      if (m_compared == m_itemCounts.size() || m_itemCounts[m_compared] != count) {
        return EndComparison(false);
      }
      ++m_compared;
      // A pass that was cut short has counted no further folders.
      if (m_cutShort && m_compared == m_itemCounts.size()) EndComparison(true);
  }
}

void CContactScan::StepToItem() {
  const std::shared_ptr<IScanFolder> folder = m_levels.back().folder;
  if (m_levels.back().position >= m_levels.back().items) {
    // Asked only now, because all folders may have been unregistered during the walk.
    if (!folder->ReadsSubfolders()) return LeaveFolder();
    m_levels.back().next = Next::Folders;
    return;
  }
  std::shared_ptr<IContactFields> contact;
  const int32_t position = m_levels.back().position + 1;
  const std::optional<bool> opened = Call([&] { return folder->Item(position, contact); });
  if (!opened) return;
  Level& level = m_levels.back();
  level.position = position;
  if (!*opened) {
    m_hasGaps = true;
    if (++level.failures == kMostFailures) level.position = level.items;
    return;
  }
  level.failures = 0;
  if (!contact) return;
  if (m_scanned >= kScanLimit) {
    m_cutShort = true;
    m_endedAtLimit = true;
    return EndWalk();
  }
  ++m_scanned;
  m_contact = std::move(contact);
  m_part = Part::Id;
}

void CContactScan::StepInContact() {
  const std::shared_ptr<IContactFields> item = m_contact;
  std::string text;
  switch (m_part) {
    case Part::Id: {
      const std::optional<bool> read = Call([&] { return item->ReadEntryId(text); });
      if (!read) return;
      if (!*read) return SkipContact();
      m_reading = {std::move(text), {}};
      if (m_read.Find(m_reading.entryId) != nullptr) return TakeContact();
      m_part = Part::Name;
      return;
    }
    case Part::Name: {
      const std::optional<bool> read = Call([&] { return item->ReadFileAs(text); });
      if (!read) return;
      if (!*read) return SkipContact();
      m_part = Part::Number;
      m_nextType = kFirstTelNumberType;
      return;
    }
    case Part::Number:
      return StepInNumbers(*item);
  }
}

void CContactScan::StepInNumbers(IContactFields& item) {
  std::string number;
  const std::optional<bool> read = Call([&] {
    GetContactTelNumber(item, m_nextType, number);
    return !number.empty();
  });
  if (!read) return;
  if (*read) m_reading.numbers.emplace_back(m_nextType, std::move(number));
  if (++m_nextType > kLastTelNumberType) TakeContact();
}

void CContactScan::StepToFolders() {
  const std::shared_ptr<IScanFolder> folder = m_levels.back().folder;
  const std::optional<bool> opened = Call([&] { return folder->OpenFolders(); });
  if (!opened) return;
  if (!*opened) return FailWalk(Lines().folders);
  m_levels.back().next = Next::FolderCount;
}

void CContactScan::StepToFolderCount() {
  const std::shared_ptr<IScanFolder> folder = m_levels.back().folder;
  int32_t count = 0;
  const std::optional<bool> counted = Call([&] { return folder->CountFolders(count); });
  if (!counted) return;
  if (!*counted) return FailWalk(Lines().count);
  if (count == 0) return LeaveFolder();
  m_levels.back().next = Next::LastFolder;
}

void CContactScan::StepToSubfolder(bool last) {
  const std::shared_ptr<IScanFolder> folder = m_levels.back().folder;
  std::shared_ptr<IScanFolder> subfolder;
  const std::optional<bool> found = Call(
      [&] { return last ? folder->LastFolder(subfolder) : folder->PreviousFolder(subfolder); });
  if (!found) return;
  if (!*found) return FailWalk(last ? Lines().last : Lines().previous);
  if (!subfolder) return LeaveFolder();
  m_levels.back().inLastFolder = last;
  m_levels.back().next = Next::PreviousFolder;
  m_levels.push_back({.folder = std::move(subfolder)});
}

bool CContactScan::IsAmongItems() const noexcept {
  return m_stage == Stage::Reading && m_levels.back().next == Next::Item;
}

// Outlook sends no events when many items are added or removed at once.
void CContactScan::Recount() {
  const std::shared_ptr<IScanFolder> folder = m_levels.back().folder;
  int32_t count = 0;
  const std::optional<bool> counted = Call([&] { return folder->RecountItems(count); });
  if (!counted || !*counted || count == m_levels.back().items) return;
  m_disturbed = true;
  m_levels.back().items = count;
}

void CContactScan::BeginWalk(Stage stage) {
  m_stage = stage;
  // Release these last: that calls into Outlook and may re-enter.
  const std::shared_ptr<IContactFields> contact = std::exchange(m_contact, nullptr);
  const std::vector<Level> levels = std::exchange(m_levels, {Level{.folder = m_root}});
}

void CContactScan::BeginCount() {
  m_itemCount = 0;
  BeginWalk(Stage::Counting);
}

void CContactScan::BeginPass() {
  ++m_pass;
  m_firstSlice = m_slice;
  m_scanned = m_scannedBefore;
  m_disturbed = false;
  m_cutShort = false;
  m_endedAtLimit = false;
  m_hasGaps = false;
  m_visited.clear();
  m_itemCounts.clear();
  m_failures.clear();
  BeginWalk(Stage::Reading);
}

// A folder's failure also fails every folder above it.
void CContactScan::FailWalk(const char* line) {
  NoteFailure(line);
  for (auto level = m_levels.rbegin() + 1; level < m_levels.rend(); ++level) {
    NoteFailure(level->inLastFolder ? Lines().visitLast : Lines().visitPrevious);
  }
  if (m_stage == Stage::Reading) m_cutShort = true;
  EndWalk();
}

void CContactScan::LeaveFolder() {
  const Level left = std::move(m_levels.back());
  m_levels.pop_back();
  if (m_levels.empty()) EndWalk();
}

void CContactScan::EndWalk() {
  switch (m_stage) {
    case Stage::Counting:
      BeginPass();
      if (m_itemCount >= kLoadingThreshold) m_host.ShowLoading();
      m_log.Write("Create Contact Start\n");
      break;
    case Stage::Reading:
      EndPass();
      break;
    default:
      EndComparison(m_compared == m_itemCounts.size());
  }
}

void CContactScan::EndPass() {
  if (IsLastPass()) return BeginEntering();
  if (m_disturbed) return BeginPass();
  if (m_firstSlice == m_slice) return BeginEntering();
  // Compare in a slice of its own, so that changes during the comparison are rare.
  m_pauseDue = true;
  m_compared = 0;
  BeginWalk(Stage::Comparing);
}

void CContactScan::EndComparison(bool same) {
  if (same && !m_disturbed) return BeginEntering();
  BeginPass();
}

// If Outlook reported a change while the walk read the contact, keep the reported numbers: they are
// newer.
void CContactScan::TakeContact() {
  ReadContact* contact = m_read.Find(m_reading.entryId);
  if (contact == nullptr) contact = &m_read.Add(std::move(m_reading));
  Visit(*contact);
  const std::shared_ptr<IContactFields> done = std::exchange(m_contact, nullptr);
}

void CContactScan::Visit(ReadContact& contact) {
  if (std::exchange(contact.pass, m_pass) != m_pass) m_visited.push_back(&contact);
}

void CContactScan::SkipContact() {
  m_hasGaps = true;
  const std::shared_ptr<IContactFields> skipped = std::exchange(m_contact, nullptr);
}

void CContactScan::TelNoCheckAndUpdate(IContactFields& item) {
  m_disturbed = true;
  const uint32_t serial = ++m_reports;
  ReadContact contact;
  if (!BeginTelNoCheckAndUpdate(item, contact.entryId, m_log)) return;
  std::string number;
  for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
    GetContactTelNumber(item, type, number);
    if (!number.empty()) contact.numbers.emplace_back(type, number);
  }
  Report(serial, std::move(contact));
  m_log.Write("CContactItem::TelNoCheckAndUpdate OK\n");
}

// The scan may have ended while the contact was read.
void CContactScan::Report(uint32_t serial, ReadContact contact) {
  if (IsEntering()) FinishEntering();
  if (!IsRunning()) {
    for (int type = kFirstTelNumberType; type <= kLastTelNumberType; ++type) {
      m_index.DeleteContactSearchDataByEntryID(contact.entryId, type);
    }
    return Enter(contact);
  }
  ReadContact* known = m_read.Find(contact.entryId);
  if (known == nullptr) known = &m_read.Add({contact.entryId, {}});
  if (known->reported > serial) return;
  known->numbers = std::move(contact.numbers);
  known->reported = serial;
}

void CContactScan::OnContactItemDelete(IContactFields& item) {
  m_disturbed = true;
  std::string entryId;
  if (!item.ReadEntryId(entryId)) return;
  if (IsEntering()) FinishEntering();  // may have begun inside the call
  if (ReadContact* contact = m_read.Find(entryId)) contact->reported = 0;
}

const FolderWalkLines& CContactScan::Lines() const noexcept {
  switch (m_stage) {
    case Stage::Counting:
      return kCountLines;
    case Stage::Reading:
      return kCollectLines;
    default:
      return kNoLines;
  }
}

// Only the failures of the last pass are logged.
void CContactScan::NoteFailure(const char* line) {
  if (line == nullptr) return;
  if (m_stage == Stage::Counting) {
    m_log.Write(line);
  } else {
    m_failures.push_back(line);
  }
}

void CContactScan::End(bool stopped) {
  const Stage stage = std::exchange(m_stage, Stage::Idle);
  if (stage == Stage::Counting) m_log.Write("Create Contact Start\n");
  for (const char* line : m_failures)
    m_log.Write(line);
  // When stopped within a contact, enter the numbers read so far.
  if (m_contact && m_part == Part::Number) TakeContact();
  if (stage != Stage::Entering) CollectToEnter(stopped);
  EnterRest();
  Forget();
  m_log.Write("Create Contact End\n");
  if (!m_host.PostCloseLoading()) m_log.Write("ClosePost post failed\n");
}

void CContactScan::BeginEntering() {
  m_stage = Stage::Entering;
  CollectToEnter(false);
}

void CContactScan::CollectToEnter(bool stopped) {
  m_toEnter.assign(m_visited.begin(), m_visited.end());
  m_entered = 0;
  // A contact that a complete pass did not reach no longer exists.
  if (!stopped && !m_cutShort && !m_hasGaps) return;
  for (const ReadContact& contact : m_read.InOrder()) {
    if (contact.pass != m_pass && (stopped || contact.reported != 0)) m_toEnter.push_back(&contact);
  }
}

void CContactScan::StepInEntering() {
  if (m_entered == m_toEnter.size()) return End(false);
  EnterNext();
}

void CContactScan::EnterNext() {
  Enter(*m_toEnter[m_entered++]);
}

void CContactScan::EnterRest() {
  try {
    while (m_entered < m_toEnter.size())
      EnterNext();
  } catch (...) {
    Abandon();
    throw;
  }
}

void CContactScan::FinishEntering() {
  End(false);
}

void CContactScan::Enter(const ReadContact& contact) {
  for (const auto& [type, number] : contact.numbers) {
    m_index.AddContactSearchData(number, contact.entryId, type, {});
  }
}

void CContactScan::Abandon() noexcept {
  m_stage = Stage::Idle;
  Forget();
  m_host.PostCloseLoading();
}

void CContactScan::Forget() noexcept {
  m_visited = {};
  m_toEnter = {};
  m_read = {};
  // Release these last: that calls into Outlook and may re-enter.
  const std::shared_ptr<IContactFields> contact = std::exchange(m_contact, nullptr);
  const std::vector<Level> levels = std::exchange(m_levels, {});
  const std::shared_ptr<IScanFolder> root = std::exchange(m_root, nullptr);
}

}  // namespace quor
