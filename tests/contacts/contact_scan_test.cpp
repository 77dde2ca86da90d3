// The start-up scan: whatever happens between its slices and inside its calls, the index equals
// that of one uninterrupted scan of the final state.
#include "contacts/contact_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <random>
#include <set>

#include "contacts/dial_tail.h"
#include "tests/contacts/address_book.h"
#include "tests/contacts/contact_tree.h"

namespace quor {
namespace {

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
    transcript.Take();
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
  void ShowLoading() noexcept override { ++shown; }
  bool PostCloseLoading() noexcept override {
    ++closed;
    return true;
  }

  bool mustStop = false;
  int callsLeft = 1'000'000'000;
  int shown = 0;
  int closed = 0;
};

// A folder tree, the add-in's index and scan, and Outlook's events.
class CStage {
 public:
  explicit CStage(unsigned seed = 1) : m_random(seed) { book.log.SetEnabled(true); }

  unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

  std::string NewNumber() {
    std::string number = "55512" + std::to_string(Below(40));
    numbers.insert(number);
    return number;
  }

  TreeItemPtr NewItem() {
    auto item = std::make_shared<TreeItem>();
    item->entryId = "ID" + std::to_string(++m_ids);
    for (unsigned left = Below(4); left > 0; --left)
      item->numbers.at(1 + Below(12)) = NewNumber();
    return item;
  }

  void Begin() { scan.Begin(std::make_shared<COpenFolder>(access, root)); }

  std::vector<TreeFolderPtr> Folders() const {
    std::vector<TreeFolderPtr> folders = {root};
    for (size_t i = 0; i < folders.size(); ++i) {
      const auto subfolders = folders[i]->folders;
      folders.insert(folders.end(), subfolders.begin(), subfolders.end());
    }
    return folders;
  }
  TreeFolderPtr AnyFolder() {
    const auto folders = Folders();
    return folders[Below(static_cast<unsigned>(folders.size()))];
  }

  // Does what the folders' sinks do.
  void Changed(const TreeItemPtr& item) {
    scan.OnPositionsChanged();
    if (!item->isContact) return;
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

  void Add(TreeFolder& folder, const TreeItemPtr& item) {
    const auto place = Below(static_cast<unsigned>(folder.items.size() + 1));
    folder.items.insert(folder.items.begin() + place, item);
  }
  TreeItemPtr Remove(TreeFolder& folder) {
    const auto place = Below(static_cast<unsigned>(folder.items.size()));
    TreeItemPtr item = folder.items[place];
    folder.items.erase(folder.items.begin() + place);
    return item;
  }

  // Makes a change that Outlook reports.
  void DoSomething() {
    const TreeFolderPtr folder = AnyFolder();
    const bool empty = folder->items.empty();
    switch (Below(8)) {
      case 0: {
        const TreeItemPtr item = NewItem();
        Add(*folder, item);
        return Changed(item);
      }
      case 1:
        return empty ? void() : Deleted(Remove(*folder));
      case 2:
      case 3: {
        if (empty) return;
        const TreeItemPtr item = folder->items[Below(static_cast<unsigned>(folder->items.size()))];
        item->numbers.at(1 + Below(12)) = Below(3) == 0 ? "" : NewNumber();
        return Changed(item);
      }
      case 4: {
        if (empty) return;
        const TreeItemPtr item = Remove(*folder);
        if (Below(2) == 0) item->entryId = "ID" + std::to_string(++m_ids);
        scan.OnPositionsChanged();
        Add(*AnyFolder(), item);
        return Changed(item);
      }
      case 5: {
        const auto added = std::make_shared<TreeFolder>();
        for (unsigned left = Below(5); left > 0; --left)
          added->items.push_back(NewItem());
        folder->folders.insert(folder->folders.begin(), added);
        return scan.OnPositionsChanged();
      }
      case 6:
        if (!folder->folders.empty()) RemoveFolder(*folder);
        return;
      default:
        std::reverse(folder->items.begin(), folder->items.end());
        return empty ? void() : Changed(folder->items.front());
    }
  }

  void RemoveFolder(TreeFolder& parent) {
    const auto gone = parent.folders.begin() + Below(static_cast<unsigned>(parent.folders.size()));
    (*gone)->isThere = false;
    parent.folders.erase(gone);
    scan.OnPositionsChanged();
  }

  // Makes a change that Outlook does not report: many items at once.
  void DoMuchInSilence(bool removes) {
    const TreeFolderPtr folder = AnyFolder();
    if (removes && folder->items.size() < 16) return;
    for (int i = 0; i < 16; ++i) {
      if (removes) {
        Remove(*folder);
      } else {
        Add(*folder, NewItem());
      }
    }
  }

  void Fill() {
    for (unsigned left = 1 + Below(6); left > 0; --left) {
      const auto added = std::make_shared<TreeFolder>();
      const TreeFolderPtr parent = AnyFolder();
      for (unsigned items = Below(30); items > 0; --items)
        parent->items.push_back(NewItem());
      parent->folders.push_back(added);
    }
  }

  static void Walk(const TreeFolder& folder, CPhoneNumberIndex& index) {
    for (const TreeItemPtr& item : folder.items) {
      if (!item->opens || !item->isContact || !item->hasName) continue;
      for (int type = 1; type <= 12; ++type) {
        const std::string& number = item->numbers.at(static_cast<size_t>(type));
        if (!number.empty()) index.AddContactSearchData(number, item->entryId, type, "");
      }
    }
    std::for_each(folder.folders.rbegin(), folder.folders.rend(),
                  [&](const auto& subfolder) { Walk(*subfolder, index); });
  }

  void ExpectIndexOfWhatIsThere() {
    EXPECT_FALSE(scan.IsRunning());
    EXPECT_EQ(access.held, 0);
    EXPECT_EQ(host.closed, 1);
    Book expected;
    Walk(*root, expected.index);
    EXPECT_EQ(book.Records(numbers), expected.Records(numbers));
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
    stage.Fill();
    // Each may cause another pass; the last pass counts in any case.
    int events = static_cast<int>(stage.Below(CContactScan::kMostPasses));
    const unsigned inside = stage.Below(2);
    // Only the changed item count reveals it.
    const bool silent = stage.Below(2) == 0;
    const bool removes = stage.Below(2) == 0;
    const auto slice = [&] {
      return static_cast<int>(silent ? 150 + stage.Below(60) : stage.Below(60));
    };
    stage.access.inside = [&, busy = false]() mutable {
      if (busy || inside == 0 || stage.Below(100) != 0) return;
      busy = true;
      const unsigned choice = stage.Below(6);
      // A change that is still being read when the scan ends is entered like any later one.
      if (choice == 0 && stage.reporting == 0) {
        stage.scan.FinishNow();
      } else if (choice == 1 && stage.reporting == 0) {
        stage.scan.Continue();
      } else if (events > 0) {
        --events;
        stage.DoSomething();
      }
      busy = false;
    };
    stage.host.callsLeft = slice();
    stage.Begin();
    while (stage.scan.IsRunning()) {
      // Later changes would enter in another order.
      if (events > 0 && !stage.scan.IsEntering() && stage.Below(3) == 0) {
        --events;
        if (silent && stage.Below(3) == 0) {
          stage.DoMuchInSilence(removes);
        } else {
          for (unsigned left = stage.Below(3); left > 0; --left)
            stage.DoSomething();
        }
      }
      if (stage.Below(200) == 0) stage.scan.FinishNow();
      stage.host.callsLeft = slice();
      stage.scan.Continue();
    }
    stage.access.inside = nullptr;
    stage.ExpectIndexOfWhatIsThere();
    if (HasFailure()) FAIL() << "seed " << seed;
  }
}

// A small tree: three folders deep, with every kind of item.
struct SmallStage : CStage {
  SmallStage() {
    for (const TreeFolderPtr& folder : {root, second, third})
      for (const char* kind : {"contact", "list", "unreadable", "nameless", "contact"}) {
        const TreeItemPtr item = NewItem();
        item->numbers.at(7) = "4411" + std::to_string(m_next);
        item->numbers.at(10) = "4422" + std::to_string(m_next++);
        numbers.insert(item->numbers.at(7));
        numbers.insert(item->numbers.at(10));
        item->isContact = kind != std::string("list");
        item->opens = kind != std::string("unreadable");
        item->hasName = kind != std::string("nameless");
        folder->items.push_back(item);
      }
    root->folders = {second};
    second->folders = {third};
  }

  // Runs an event inside the nth call.
  void InCall(int n, std::function<void()> event) {
    access.inside = [this, n, event = std::move(event)] {
      if (access.calls == n) event();
    };
  }
  bool Knows(const std::string& number) {
    ContactMatch match;
    return book.index.FindPhoneNumber(number, false, match);
  }

  TreeFolderPtr second = std::make_shared<TreeFolder>();
  TreeFolderPtr third = std::make_shared<TreeFolder>();

 private:
  int m_next = 100;
};

TEST(ContactScan, NothingIsCalledAfterAStopInsideAnyCall) {
  for (const int callsOfASlice : {7, 1000}) {
    for (int n = 1, left = 1; left > 0; ++n) {
      SmallStage stage;
      left = 0;
      stage.InCall(n, [&] {
        left = 1;
        stage.host.mustStop = true;
        stage.scan.Stop();
      });
      stage.host.callsLeft = callsOfASlice;
      stage.Begin();
      while (stage.scan.IsRunning() && !stage.host.mustStop) {
        stage.host.callsLeft = callsOfASlice;
        stage.scan.Continue();
      }
      EXPECT_FALSE(stage.scan.IsRunning()) << n;
      EXPECT_EQ(stage.access.calls, left > 0 ? n : n - 1);
      EXPECT_EQ(stage.access.held, 0) << n;
      EXPECT_EQ(stage.host.closed, 1) << n;
      EXPECT_EQ(stage.book.transcript.Take().back(), "Create Contact End\n") << n;
    }
  }
}

TEST(ContactScan, AStopKeepsWhatWasReadUpToTheNumberAtHand) {
  SmallStage inside;
  inside.access.inside = [&] {
    if (inside.Knows("4411100")) ADD_FAILURE() << "entered before the end";
    // 13 calls count the items; then come folder, item, ID, name and the numbers 1 to 7.
    if (inside.access.calls == 13 + 11) inside.host.mustStop = true;
  };
  inside.Begin();
  SmallStage between;
  between.host.callsLeft = 13 + 11 - 1;
  between.Begin();
  EXPECT_TRUE(between.scan.IsRunning());
  between.scan.Stop();
  for (SmallStage* stage : {&inside, &between}) {
    EXPECT_FALSE(stage->scan.IsRunning());
    EXPECT_EQ(stage->access.held, 0);
    EXPECT_TRUE(stage->Knows("4411100"));
    EXPECT_FALSE(stage->Knows("4422100"));
    EXPECT_FALSE(stage->Knows("4411104"));
  }
}

TEST(ContactScan, ALookUpInsideAnyCallOrBetweenSlicesHasTheRestReadAtOnce) {
  for (int n = 1, left = 1; left > 0; ++n) {
    SmallStage stage;
    left = 0;
    stage.InCall(n, [&] {
      left = 1;
      stage.scan.FinishNow();
      EXPECT_FALSE(stage.scan.IsRunning());
    });
    stage.Begin();
    stage.ExpectIndexOfWhatIsThere();

    SmallStage sliced;
    sliced.host.callsLeft = n;
    sliced.Begin();
    sliced.scan.FinishNow();
    sliced.ExpectIndexOfWhatIsThere();
  }
}

TEST(ContactScan, OutOfMemoryInAnyCallEndsIt) {
  for (int n = 1, left = 1; left > 0; ++n) {
    SmallStage stage;
    left = 0;
    stage.InCall(n, [&] {
      left = 1;
      throw std::bad_alloc();
    });
    bool thrown = false;
    try {
      stage.Begin();
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    EXPECT_EQ(thrown, left > 0);
    EXPECT_FALSE(stage.scan.IsRunning());
    EXPECT_EQ(stage.access.held, 0);
    EXPECT_EQ(stage.host.closed, 1);
  }
}

TEST(ContactScan, SlicesThatAreOverAtOnceStillGetToTheEnd) {
  SmallStage stage;
  stage.host.callsLeft = 0;
  stage.Begin();
  for (int slices = 0; stage.scan.IsRunning() && slices < 1000; ++slices) {
    stage.host.callsLeft = 0;
    stage.scan.Continue();
  }
  stage.ExpectIndexOfWhatIsThere();
}

TEST(ContactScan, AChangeThatIsBeingReadAtTheEndIsEntered) {
  SmallStage stage;
  stage.host.callsLeft = 40;
  stage.Begin();
  const TreeItemPtr changed = stage.root->items.front();
  changed->numbers.at(7) = "9911";
  stage.access.inside = [&, first = true]() mutable {
    if (std::exchange(first, false)) stage.scan.FinishNow();
  };
  stage.Changed(changed);
  EXPECT_TRUE(stage.Knows("9911"));
  changed->numbers.at(7) = "9922";
  stage.Changed(changed);
  EXPECT_TRUE(stage.Knows("9922"));
}

TEST(ContactScan, AChangeWhileContactsEnterChangesTheIndexAfterwards) {
  for (const bool deleted : {false, true}) {
    SmallStage stage;
    const TreeItemPtr first = stage.root->items.front();
    first->numbers.at(1) = "4433100";
    stage.host.callsLeft = 1;
    stage.Begin();
    while (!stage.scan.IsEntering())
      stage.scan.Continue();
    stage.scan.Continue();
    EXPECT_TRUE(stage.Knows("4433100"));
    EXPECT_FALSE(stage.Knows("4411114"));
    if (deleted) {
      stage.Deleted(first);
    } else {
      first->numbers.at(1) = "9911";
      stage.Changed(first);
    }
    EXPECT_FALSE(stage.scan.IsRunning());
    EXPECT_EQ(stage.host.closed, 1);
    EXPECT_FALSE(stage.Knows("4433100"));
    EXPECT_EQ(stage.Knows("9911"), !deleted);
    EXPECT_TRUE(stage.Knows("4411114"));
  }
}

TEST(ContactScan, OneBeyondTheLimitIsKnownOnceOutlookReportsIt) {
  CStage stage;
  for (int i = 0; i < CContactScan::kScanLimit + 3; ++i) {
    stage.root->items.push_back(stage.NewItem());
    stage.root->items.back()->numbers.at(1) = "77" + std::to_string(10000 + i);
  }
  const auto last = stage.root->items.end();
  stage.host.callsLeft = 100;
  stage.Begin();
  stage.Changed(last[-1]);
  stage.Changed(last[-2]);
  stage.Deleted(last[-2]);
  stage.host.callsLeft = 1'000'000;
  while (stage.scan.IsRunning())
    stage.scan.Continue();
  ContactMatch match;
  EXPECT_TRUE(stage.book.index.FindPhoneNumber("7714999", false, match));
  EXPECT_FALSE(stage.book.index.FindPhoneNumber("7715000", false, match));
  EXPECT_FALSE(stage.book.index.FindPhoneNumber("7715001", false, match));
  EXPECT_TRUE(stage.book.index.FindPhoneNumber("7715002", false, match));
  EXPECT_EQ(stage.host.shown, 1);
}

// A broken store: two billion items, none of which opens.
TEST(ContactScan, ARunOfFailuresEndsAFolder) {
  CStage stage;
  stage.root->missing = INT32_MAX;
  stage.Begin();
  EXPECT_FALSE(stage.scan.IsRunning());
  constexpr int kOtherCalls = 6;  // items, folders and their number, in two walks
  EXPECT_EQ(stage.access.calls, CContactScan::kMostFailures + kOtherCalls);
}

TEST(ContactScan, EndlessChangesEndInOneGo) {
  SmallStage stage;
  int slices = 0;
  stage.host.callsLeft = 30;
  for (stage.Begin(); stage.scan.IsRunning(); stage.scan.Continue()) {
    ASSERT_LT(++slices, 200);
    stage.host.callsLeft = 30;
    stage.scan.OnPositionsChanged();
  }
  stage.ExpectIndexOfWhatIsThere();
}

}  // namespace
}  // namespace quor
