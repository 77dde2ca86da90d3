// Random histories: after any operation, the index's results, its log and the contacts it opens
// equal the naive model's. QUOR_INDEX_STEPS=5000000 makes this a soak test.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <tuple>

#include "contacts/phone_number_index.h"
#include "tests/contacts/address_book.h"
#include "tests/contacts/naive_phone_index.h"

namespace quor {
namespace {

constexpr int kStepsOfHistory = 400;

class CHistory {
 public:
  explicit CHistory(unsigned seed) : m_random(seed) {
    // Entry IDs around 48 characters, the part that is not shared, with equal and different
    // folders.
    const std::string message(46, '0');
    for (const char* const folder : {"", "A", "B", "AA"}) {
      for (const char* const last : {"01", "1A", "1a"})
        m_book[folder + message + last].fileAs = std::string("Name of ") + folder + last;
    }
    m_book["short"].fileAs = "Short";
    m_book[std::string(140, 'C')].fileAs = "Long";
    m_symbols = Any<std::string>({"1", "12", "12P", "1Ff", "12Pp", "019#*", "12pPfF", "0"});
  }

  void Run() {
    for (int step = 0; step < kStepsOfHistory; ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      Step();
      if (testing::Test::HasFatalFailure()) return;
    }
    Drain();
  }

 private:
  void Step() {
    const unsigned choice = Below(16);
    if (choice == 0) return SetLogEnabled(Below(2) != 0);
    if (choice <= 2) {
      AnyContact().second.opens = Below(3) != 0;
    } else if (choice <= 5) {
      ChangeContact();
    } else if (choice == 6) {
      DeleteSomething();
    } else if (choice <= 8) {
      AddSomething();
    } else {
      LookUp();
    }
  }

  // Looks up every key, first unchecked, then checked without any contact that opens until nothing
  // is left: this shows all records.
  void Drain() {
    SetLogEnabled(true);
    for (const bool check : {false, true}) {
      for (auto& [entryId, contact] : m_book)
        contact.opens = !check;
      for (int digit = 0; digit <= 8; ++digit) {
        for (const auto& [key, records] : CNaivePhoneIndex::SearchTable(m_model.Table(digit))) {
          Find(digit, key, check);
          if (testing::Test::HasFatalFailure()) return;
        }
      }
    }
  }

  unsigned Below(size_t limit) { return static_cast<unsigned>(m_random() % limit); }
  template <class T>
  T Any(const std::vector<T>& choices) {
    return choices[Below(choices.size())];
  }
  AddressBook::value_type& AnyContact() { return *std::next(m_book.begin(), Below(m_book.size())); }
  int AnyType() { return 1 + static_cast<int>(Below(12)); }

  std::string AnyNumber() {
    if (!m_used.empty() && Below(3) != 0) {
      std::string number = Any(m_used);
      if (Below(3) == 0) number = number.substr(Below(number.size() + 1));
      if (Below(3) == 0) number.insert(0, Any<std::string>({"0", "00", "0049", "P", "9"}));
      if (Below(4) == 0) number.insert(Below(number.size() + 1), 1, 'p');
      if (Below(4) == 0) std::erase_if(number, [](char c) { return c == 'P' || c == 'f'; });
      return number;
    }
    std::string number(Below(40) == 0 ? Below(300) : 3 + Below(12), ' ');
    for (char& c : number)
      c = m_symbols[Below(m_symbols.size())];
    m_used.push_back(number);
    return number;
  }

  struct TableKey {
    int digit;
    std::string key;
  };
  TableKey AnyKey() {
    std::string number = AnyNumber();
    number.erase(0, number.size() - std::min<size_t>(number.size(), Below(13)));
    return {CNaivePhoneIndex::TableOf(number.size()), number};
  }

  void SetLogEnabled(bool isEnabled) {
    m_modelLog.SetEnabled(isEnabled);
    m_indexLog.SetEnabled(isEnabled);
  }

  void ChangeContact() {
    auto& known = AnyContact();
    for (unsigned changes = Below(4); changes > 0; --changes)
      known.second.numbers[1 + Below(12)] = Below(4) == 0 ? "" : AnyNumber();
    const int unreadable = static_cast<int>(Below(30));
    const bool isDeleted = Below(6) == 0;
    Both([&](auto& index) {
      CBookItem item(known.first, known.second);
      item.unreadableType = unreadable;
      isDeleted ? index.OnContactItemDelete(item) : index.TelNoCheckAndUpdate(item);
    });
  }

  void AddSomething() {
    const std::string entryId = Below(50) == 0 ? "" : AnyContact().first;
    const int type = AnyType();
    const std::string number = AnyNumber();
    const TableKey table = AnyKey();
    const bool isOneKey = Below(4) == 0;
    for (unsigned times = Below(30) == 0 ? 70 : 1; times > 0; --times) {
      Both([&](auto& index) {
        if (isOneKey) {
          index.InsertContactSearchData(table.digit, table.key, entryId, type, "");
        } else {
          index.AddContactSearchData(number, entryId, type, "");
        }
      });
    }
  }

  void DeleteSomething() {
    const std::string entryId = AnyContact().first;
    const int type = AnyType();
    const TableKey table = AnyKey();
    const bool isWholeContact = Below(2) == 0;
    Both([&](auto& index) {
      if (isWholeContact) {
        index.DeleteContactSearchDataByEntryID(entryId, type);
      } else {
        index.DeleteContactSearchData(table.digit, table.key, entryId, type);
      }
    });
  }

  void LookUp() {
    const std::string number = AnyNumber();
    const bool check = Below(3) != 0;
    const unsigned choice = Below(4);
    if (choice == 0) return Find(static_cast<int>(Below(9)), number, check);
    BothFind([&](auto& index, auto& match) {
      return choice == 1 ? index.FindPhoneNumber(number, check, match)
                         : index.SearchPhoneNumber(number, check, match);
    });
  }

  void Find(int digit, const std::string& number, bool check) {
    BothFind([&](auto& index, auto& match) {
      return index.FindContactSearchData(digit, number, check, match);
    });
  }

  template <class Operation>
  void Both(Operation operation) {
    operation(m_model);
    operation(m_index);
    ASSERT_EQ(m_indexTranscript.Take(), m_modelTranscript.Take());
  }
  template <class LookUp>
  void BothFind(LookUp lookUp) {
    ContactMatch expected = {"as before", "as before", 99, 0, 0};
    ContactMatch match = expected;
    ASSERT_EQ(lookUp(m_index, match), lookUp(m_model, expected));
    const auto fields = [](const ContactMatch& m) {
      return std::tie(m.entryId, m.name, m.telNumberType, m.matchedDigits, m.moreContacts);
    };
    ASSERT_EQ(fields(match), fields(expected));
    ASSERT_EQ(m_indexTranscript.Take(), m_modelTranscript.Take());
  }

  std::mt19937 m_random;
  AddressBook m_book;
  std::string m_symbols;
  std::vector<std::string> m_used;
  CTranscript m_modelTranscript;
  CTranscript m_indexTranscript;
  CDiagnosticLog m_modelLog{m_modelTranscript};
  CDiagnosticLog m_indexLog{m_indexTranscript};
  CBookDirectory m_modelDirectory{m_book, m_modelTranscript};
  CBookDirectory m_indexDirectory{m_book, m_indexTranscript};
  CNaivePhoneIndex m_model{m_modelDirectory, m_modelLog};
  CPhoneNumberIndex m_index{m_indexDirectory, m_indexLog};
};

TEST(IndexHistory, EqualsTheNaiveModel) {
  const char* const soak = std::getenv("QUOR_INDEX_STEPS");
  const long steps = soak != nullptr ? std::atol(soak) : 30'000;
  ASSERT_GT(steps, 0);
  for (long done = 0; done < steps && !HasFatalFailure(); done += kStepsOfHistory) {
    const auto seed = static_cast<unsigned>(done / kStepsOfHistory);
    SCOPED_TRACE("history " + std::to_string(seed));
    CHistory(seed).Run();
  }
}

}  // namespace
}  // namespace quor
