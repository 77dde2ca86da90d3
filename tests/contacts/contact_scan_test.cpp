// The start-up scan: whatever happens between its slices and inside its calls, the index equals
// that of one uninterrupted scan of the final state.
#include "contacts/contact_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <new>
#include <random>
#include <set>

#include "tests/contacts/address_book.h"

namespace quor {
namespace {

struct TreeItem {
  std::string entryId;
  std::array<std::string, 13> numbers;  // by type
};
using TreeItemPtr = std::shared_ptr<TreeItem>;

struct TreeFolder {
  std::vector<TreeItemPtr> items;
  std::vector<std::shared_ptr<TreeFolder>> folders;
  bool isThere = true;
  int32_t missing = 0;  // items that it counts and that do not open
};
using TreeFolderPtr = std::shared_ptr<TreeFolder>;

// All calls into the tree pass through this.
struct TreeAccess {
  std::function<void()> inside;  // runs while the call pumps messages
  int calls = 0;
  std::shared_ptr<int> held = std::make_shared<int>();  // shared by all folders and contacts

  void Call() {
    ++calls;
    if (inside) inside();
  }
};

// An open contact: each call reads the item's present state, like a new object of Outlook's.
class CTreeContact final : public IContactFields {
 public:
  CTreeContact(TreeAccess& access, TreeItemPtr item) : m_access(access), m_item(std::move(item)) {}

  bool ReadEntryId(std::string& entryId) override {
    m_access.Call();
    entryId = m_item->entryId;
    return true;
  }
  bool Save() override { return true; }
  bool ReadFileAs(std::string&) override {
    m_access.Call();
    return true;
  }
  bool ReadTelNumber(int telNumberType, std::string& number) override {
    const std::string before = m_item->numbers.at(static_cast<size_t>(telNumberType));
    m_access.Call();
    number = before;
    return true;
  }

 private:
  TreeAccess& m_access;
  std::shared_ptr<int> m_held = m_access.held;
  TreeItemPtr m_item;
};

// An open folder. Its collections are live, like Outlook's.
class COpenFolder final : public IScanFolder {
 public:
  COpenFolder(TreeAccess& access, TreeFolderPtr folder)
      : m_access(access), m_folder(std::move(folder)) {}

  bool CountItems(int32_t& count) override {
    m_access.Call();
    count = static_cast<int32_t>(m_folder->items.size()) + m_folder->missing;
    return m_folder->isThere;
  }
  bool OpenItems(int32_t& count) override { return CountItems(count); }
  bool RecountItems(int32_t& count) override { return CountItems(count); }
  bool Item(int32_t position, std::shared_ptr<IContactFields>& contact) override {
    m_access.Call();
    const auto index = static_cast<size_t>(position - 1);
    if (!m_folder->isThere || index >= m_folder->items.size()) return false;
    contact = std::make_shared<CTreeContact>(m_access, m_folder->items[index]);
    return true;
  }

  bool ReadsSubfolders() override { return true; }
  bool OpenFolders() override {
    m_access.Call();
    return m_folder->isThere;
  }
  bool CountFolders(int32_t& count) override {
    m_access.Call();
    count = static_cast<int32_t>(m_folder->folders.size());
    return m_folder->isThere;
  }
  bool LastFolder(std::shared_ptr<IScanFolder>& folder) override {
    m_cursor = m_folder->folders.size();
    return PreviousFolder(folder);
  }
  bool PreviousFolder(std::shared_ptr<IScanFolder>& folder) override {
    m_access.Call();
    m_cursor = std::min(m_cursor, m_folder->folders.size());
    folder = nullptr;
    if (m_cursor == 0) return true;
    folder = std::make_shared<COpenFolder>(m_access, m_folder->folders[--m_cursor]);
    return true;
  }

 private:
  TreeAccess& m_access;
  std::shared_ptr<int> m_held = m_access.held;
  TreeFolderPtr m_folder;
  size_t m_cursor = 0;
};

// Opens no contact, so that checked look-ups reveal all records of a key, one after the other.
class CNobody final : public IContactDirectory {
 public:
  bool FindContactFileAs(std::string_view, std::string&) override { return false; }
};

struct Book {
  CTranscript transcript;
  CDiagnosticLog log{transcript};
  CNobody nobody;
  CPhoneNumberIndex index{nobody, log};

  // All records under the numbers' tails, in order. Empties the index.
  std::vector<std::string> Records(const std::set<std::string>& numbers) {
    log.SetEnabled(true);
    ContactMatch match;
    for (const std::string& number : numbers)
      while (index.FindPhoneNumber(number, false, match)) {
        transcript.WriteLine(match.entryId + " " + std::to_string(match.telNumberType) + "\n");
        index.FindPhoneNumber(number, true, match);
      }
    return transcript.Take();
  }
};

class CHost final : public IContactScanHost {
 public:
  bool MustStop() noexcept override { return mustStop; }
  bool IsSliceOver() noexcept override { return callsLeft-- <= 0; }
  void ShowLoading() noexcept override {}
  bool PostCloseLoading() noexcept override {
    ++closed;
    return true;
  }

  bool mustStop = false;
  int callsLeft = 0;
  int closed = 0;
};

// A folder tree, the add-in's index and scan, and Outlook's events.
class CStage {
 public:
  explicit CStage(unsigned seed = 1) : m_random(seed) {}

  unsigned Below(size_t limit) { return static_cast<unsigned>(m_random() % limit); }

  std::string NewEntryId() { return "ID" + std::to_string(++m_ids); }
  std::string NewNumber() { return *numbers.insert("55512" + std::to_string(Below(40))).first; }

  TreeItemPtr NewItem() {
    auto item = std::make_shared<TreeItem>();
    item->entryId = NewEntryId();
    for (unsigned left = Below(4); left > 0; --left)
      item->numbers.at(1 + Below(12)) = NewNumber();
    return item;
  }
  TreeFolderPtr NewFolder(unsigned items) {
    auto folder = std::make_shared<TreeFolder>();
    for (; items > 0; --items)
      folder->items.push_back(NewItem());
    return folder;
  }
  TreeFolderPtr AnyFolder() {
    std::vector<TreeFolderPtr> folders = {root};
    for (size_t i = 0; i < folders.size(); ++i) {
      const auto subfolders = folders[i]->folders;
      folders.insert(folders.end(), subfolders.begin(), subfolders.end());
    }
    return folders[Below(folders.size())];
  }

  void Begin(int callsOfASlice) {
    host.callsLeft = callsOfASlice;
    scan.Begin(std::make_shared<COpenFolder>(access, root));
  }
  void Continue(int callsOfASlice) {
    host.callsLeft = callsOfASlice;
    scan.Continue();
  }

  // Do what the folders' sinks do.
  void Changed(const TreeItemPtr& item) {
    scan.OnPositionsChanged();
    CTreeContact contact(access, item);
    ++reporting;
    if (scan.IsEntering()) scan.FinishEntering();
    if (scan.IsRunning()) {
      scan.TelNoCheckAndUpdate(contact);
    } else {
      book.index.TelNoCheckAndUpdate(contact);
    }
    --reporting;
  }
  void Deleted(const TreeItemPtr& item) {
    scan.OnPositionsChanged();
    CTreeContact contact(access, item);
    if (scan.IsEntering()) scan.FinishEntering();
    if (scan.IsRunning()) scan.OnContactItemDelete(contact);
    book.index.OnContactItemDelete(contact);
  }

  TreeItemPtr Add(TreeFolder& folder, const TreeItemPtr& item) {
    return *folder.items.insert(folder.items.begin() + Below(folder.items.size() + 1), item);
  }
  TreeItemPtr Remove(TreeFolder& folder) {
    const auto place = folder.items.begin() + Below(folder.items.size());
    TreeItemPtr item = *place;
    folder.items.erase(place);
    return item;
  }

  // Makes a change that Outlook reports.
  void DoSomething() {
    const TreeFolderPtr folder = AnyFolder();
    switch (folder->items.empty() ? 0 : Below(8)) {
      case 0:
        return Changed(Add(*folder, NewItem()));
      case 1:
        return Deleted(Remove(*folder));
      case 2: {
        const TreeItemPtr item = Remove(*folder);
        if (Below(2) == 0) item->entryId = NewEntryId();
        scan.OnPositionsChanged();
        return Changed(Add(*AnyFolder(), item));
      }
      case 3:
        folder->folders.insert(folder->folders.begin(), NewFolder(Below(5)));
        return scan.OnPositionsChanged();
      case 4:
        if (folder->folders.empty()) return;
        folder->folders.back()->isThere = false;
        folder->folders.pop_back();
        return scan.OnPositionsChanged();
      case 5:
        std::ranges::reverse(folder->items);
        return Changed(folder->items.front());
      default: {
        const TreeItemPtr item = folder->items[Below(folder->items.size())];
        item->numbers.at(1 + Below(12)) = Below(3) == 0 ? "" : NewNumber();
        return Changed(item);
      }
    }
  }

  // Makes a change that Outlook does not report: many items at once.
  void DoMuchInSilence(bool removes) {
    const TreeFolderPtr folder = AnyFolder();
    if (removes && folder->items.size() < 16) return;
    for (int i = 0; i < 16; ++i)
      removes ? Remove(*folder) : Add(*folder, NewItem());
  }

  static void Walk(const TreeFolder& folder, CPhoneNumberIndex& index) {
    for (const TreeItemPtr& item : folder.items) {
      for (size_t type = 1; type <= 12; ++type) {
        const std::string& number = item->numbers[type];
        if (number.empty()) continue;
        index.AddContactSearchData(number, item->entryId, static_cast<int>(type), "");
      }
    }
    std::for_each(folder.folders.rbegin(), folder.folders.rend(),
                  [&](const auto& subfolder) { Walk(*subfolder, index); });
  }

  void ExpectIndexOfWhatIsThere() {
    Book expected;
    Walk(*root, expected.index);
    EXPECT_EQ(book.Records(numbers), expected.Records(numbers));
    ExpectEnd();
  }
  void ExpectEnd() {
    EXPECT_FALSE(scan.IsRunning());
    EXPECT_EQ(access.held.use_count(), 1);
    EXPECT_EQ(host.closed, 1);
  }

  Book book;
  CHost host;
  CContactScan scan{book.index, host, book.log};
  TreeAccess access;
  TreeFolderPtr root = std::make_shared<TreeFolder>();
  std::set<std::string> numbers;
  int reporting = 0;

 private:
  std::mt19937 m_random;
  int m_ids = 0;
};

TEST(ContactScan, WhateverHappensMeanwhileTheIndexIsThatOfTheEnd) {
  for (unsigned seed = 0; seed < 1500; ++seed) {
    CStage stage(seed);
    for (unsigned folders = 1 + stage.Below(6); folders > 0; --folders)
      stage.AnyFolder()->folders.push_back(stage.NewFolder(stage.Below(30)));
    // Each may cause another pass; the last pass counts in any case.
    int events = static_cast<int>(stage.Below(CContactScan::kMostPasses));
    const bool inside = stage.Below(2) == 0;
    // Only the changed item count reveals it.
    const bool silent = stage.Below(2) == 0;
    const bool removes = stage.Below(2) == 0;
    const auto slice = [&] {
      return static_cast<int>(silent ? 150 + stage.Below(60) : stage.Below(60));
    };
    stage.access.inside = [&, busy = false]() mutable {
      if (busy || !inside || stage.Below(100) != 0) return;
      busy = true;
      const unsigned choice = stage.Below(6);
      // A change that is still being read when the scan ends is entered like any later one.
      if (choice == 0 && stage.reporting == 0) {
        stage.scan.FinishNow();
      } else if (choice == 1 && stage.reporting == 0) {
        stage.scan.Continue();
      } else if (events-- > 0) {
        stage.DoSomething();
      }
      busy = false;
    };
    for (stage.Begin(slice()); stage.scan.IsRunning(); stage.Continue(slice())) {
      // Later changes would enter in another order.
      if (!stage.scan.IsEntering() && stage.Below(3) == 0 && events-- > 0) {
        if (silent && stage.Below(3) == 0) {
          stage.DoMuchInSilence(removes);
        } else {
          for (unsigned left = stage.Below(3); left > 0; --left)
            stage.DoSomething();
        }
      }
      if (stage.Below(200) == 0) stage.scan.FinishNow();
    }
    stage.access.inside = nullptr;
    stage.ExpectIndexOfWhatIsThere();
    if (testing::Test::HasFailure()) FAIL() << "seed " << seed;
  }
}

// Two contacts in each of three folders, one below the other.
struct SmallStage : CStage {
  SmallStage() {
    root->folders = {std::make_shared<TreeFolder>()};
    root->folders[0]->folders = {std::make_shared<TreeFolder>()};
    for (const TreeFolderPtr& folder : {root, root->folders[0], root->folders[0]->folders[0]}) {
      for (int i = 0; i < 2; ++i) {
        folder->items.push_back(NewItem());
        folder->items.back()->numbers = {"", *numbers.insert(std::to_string(m_next++)).first};
      }
    }
  }
  bool Knows(const std::string& number) {
    ContactMatch match;
    return book.index.FindPhoneNumber(number, false, match);
  }

 private:
  int m_next = 4411100;
};

TEST(ContactScan, AStopALookUpOrTooLittleMemoryInsideAnyCall) {
  enum class Event { Stop, LookUp, OutOfMemory };
  for (const Event event : {Event::Stop, Event::LookUp, Event::OutOfMemory}) {
    for (const int callsOfASlice : {7, 1000}) {
      bool happened = true;
      for (int n = 1; happened; ++n) {
        SmallStage stage;
        happened = false;
        stage.access.inside = [&] {
          if (stage.access.calls != n) return;
          happened = true;
          if (event == Event::LookUp) return stage.scan.FinishNow();
          if (event == Event::OutOfMemory) throw std::bad_alloc();
          stage.host.mustStop = true;
          stage.scan.Stop();
        };
        bool thrown = false;
        try {
          stage.Begin(callsOfASlice);
          while (stage.scan.IsRunning() && !stage.host.mustStop)
            stage.Continue(callsOfASlice);
        } catch (const std::bad_alloc&) {
          thrown = true;
        }
        SCOPED_TRACE(n);
        EXPECT_EQ(thrown, happened && event == Event::OutOfMemory);
        if (happened && event != Event::LookUp) {
          stage.ExpectEnd();
          EXPECT_EQ(stage.access.calls, n) << "called after the end";
        } else {
          stage.ExpectIndexOfWhatIsThere();
        }
      }
    }
  }
}

TEST(ContactScan, EndsHoweverShortItsSlicesAndHoweverOftenTheTreeChanges) {
  for (const int callsOfASlice : {0, 30}) {
    for (const bool changes : {false, true}) {
      SmallStage stage;
      stage.access.inside = [&] {
        if (changes && stage.access.calls < 10'000) stage.scan.OnPositionsChanged();
      };
      for (stage.Begin(callsOfASlice); stage.scan.IsRunning(); stage.Continue(callsOfASlice)) {
        if (changes && !stage.scan.IsEntering()) stage.DoSomething();
      }
      EXPECT_LT(stage.access.calls, 10'000);
      stage.ExpectIndexOfWhatIsThere();
    }
  }
}

TEST(ContactScan, WhileAChangeIsReadTheScanEndsOrTheContactChangesAgain) {
  enum class Meanwhile { Ends, Enters, Changes };
  for (const Meanwhile meanwhile : {Meanwhile::Ends, Meanwhile::Enters, Meanwhile::Changes}) {
    SmallStage stage;
    stage.Begin(40);
    const TreeItemPtr changed = stage.root->items.front();
    changed->numbers[1] = "9911";
    // After the entry ID and the name.
    stage.access.inside = [&, readsNumber = stage.access.calls + 3] {
      if (stage.access.calls != readsNumber) return;
      if (meanwhile == Meanwhile::Ends) return stage.scan.FinishNow();
      while (meanwhile == Meanwhile::Enters && !stage.scan.IsEntering())
        stage.Continue(1);
      if (meanwhile == Meanwhile::Enters) return;
      changed->numbers[1] = "9922";
      stage.Changed(changed);
    };
    stage.Changed(changed);
    stage.scan.FinishNow();
    EXPECT_EQ(stage.Knows("9911"), meanwhile != Meanwhile::Changes);
    EXPECT_EQ(stage.Knows("9922"), meanwhile == Meanwhile::Changes);
    EXPECT_FALSE(stage.Knows("4411100"));
  }
}

TEST(ContactScan, AChangeWhileContactsEnterChangesTheIndexAfterwards) {
  for (const bool deleted : {false, true}) {
    SmallStage stage;
    const TreeItemPtr first = stage.root->items.front();
    stage.Begin(1);
    while (!stage.Knows("4411100"))
      stage.Continue(1);
    EXPECT_FALSE(stage.Knows("4411105"));
    if (deleted) {
      stage.root->items.erase(stage.root->items.begin());
      stage.Deleted(first);
    } else {
      first->numbers[1] = *stage.numbers.insert("9911").first;
      stage.Changed(first);
    }
    stage.ExpectIndexOfWhatIsThere();
  }
}

TEST(ContactScan, AReportedContactIsEnteredAlsoIfTheWalkCannotReachIt) {
  SmallStage stage;
  stage.root->missing = 1;
  stage.Begin(5);
  const TreeItemPtr reported = stage.NewItem();
  const TreeItemPtr deleted = stage.NewItem();
  reported->numbers = {"", "9911"};
  deleted->numbers = {"", "9922"};
  stage.Changed(reported);
  stage.Changed(deleted);
  stage.Deleted(deleted);
  stage.scan.FinishNow();
  EXPECT_TRUE(stage.Knows("9911"));
  EXPECT_FALSE(stage.Knows("9922"));
}

// A broken store: two billion items, none of which opens.
TEST(ContactScan, ARunOfFailuresEndsAFolder) {
  CStage stage;
  stage.root->missing = INT32_MAX;
  stage.Begin(1000);
  stage.ExpectEnd();
  constexpr int kOtherCalls = 6;  // items, folders and their number, in two walks
  EXPECT_EQ(stage.access.calls, CContactScan::kMostFailures + kOtherCalls);
}

}  // namespace
}  // namespace quor
