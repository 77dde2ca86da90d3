// Long random histories: whatever is done to the index, its results, its log and the contacts it
// opens are those of the walk through the tables. QUOR_INDEX_STEPS=5000000 makes it a soak.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "contacts/phone_number_index.h"
#include "tests/contacts/address_book.h"
#include "tests/contacts/naive_phone_index.h"

namespace quor {
namespace {

constexpr int kStepsOfHistory = 400;

class CHistory {
 public:
  explicit CHistory(unsigned seed) : m_random(seed) {
    static const std::vector<std::string> kEntryIds = {"00000000ABCDEF01",
                                                       "00000000abcdef01",
                                                       "00000000ABCDEF",
                                                       "0123456789",
                                                       "00000000ABCdef01",
                                                       "ABC",
                                                       "no hex",
                                                       std::string(140, 'A'),
                                                       "00000000ABCDEF02",
                                                       std::string(99, 'b'),
                                                       "G000",
                                                       "12",
                                                       std::string(139, 'A') + 'B',
                                                       std::string(40, 'A') + "0123",
                                                       std::string(40, 'A') + "012",
                                                       std::string(38, 'A') + "b0123c",
                                                       std::string(38, 'A') + "Ab0123",
                                                       std::string(40, 'B') + "0123",
                                                       std::string(42, 'A') + "not hex",
                                                       std::string(40, 'A')};
    for (const std::string& entryId : kEntryIds)
      m_book[entryId].fileAs = "Name of " + entryId;
    m_symbols = Any<std::string>({"1", "12", "12P", "1Ff", "12Pp", "019#*", "12pPfFx", "0"});
  }

  void Step() {
    switch (Below(16)) {
      case 0:
        m_modelLog.SetEnabled(Below(2) != 0);
        m_indexLog.SetEnabled(m_modelLog.IsEnabled());
        break;
      case 1:
      case 2:
        AnyContact().second.opens = Below(3) != 0;
        break;
      case 3:
      case 4:
      case 5:
        ChangeContact();
        break;
      case 6:
        DeleteSomething();
        break;
      case 7:
      case 8:
        AddSomething();
        break;
      default:
        LookUp();
    }
  }

  // Opens nothing any more and looks every key up until it is gone: all records come to light.
  void Drain() {
    m_modelLog.SetEnabled(true);
    m_indexLog.SetEnabled(true);
    const auto tables = m_model.Tables();
    for (int digit = 0; digit <= 8; ++digit) {
      for (const auto& [key, records] : tables[static_cast<size_t>(digit)]) {
        Find(digit, key, false);
      }
    }
    for (auto& [entryId, contact] : m_book)
      contact.opens = false;
    for (int digit = 0; digit <= 8; ++digit) {
      for (const auto& [key, records] : tables[static_cast<size_t>(digit)]) {
        if (testing::Test::HasFatalFailure()) return;
        Find(digit, key, true);
      }
    }
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
  template <class T>
  T Any(const std::vector<T>& choices) {
    return choices[Below(static_cast<unsigned>(choices.size()))];
  }
  AddressBook::value_type& AnyContact() {
    return *std::next(m_book.begin(), Below(static_cast<unsigned>(m_book.size())));
  }

  size_t AnyLength() {
    switch (Below(40)) {
      case 0:
        return Below(300);
      case 1:
        return Below(3);
      default:
        return 3 + Below(12);
    }
  }

  std::string AnyNumber() {
    if (!m_used.empty() && Below(3) != 0) {
      std::string number = Any(m_used);
      if (Below(3) == 0) number = number.substr(Below(static_cast<unsigned>(number.size() + 1)));
      if (Below(3) == 0) number.insert(0, Any<std::string>({"0", "00", "0049", "P", "9"}));
      if (Below(4) == 0) number.insert(Below(static_cast<unsigned>(number.size() + 1)), 1, 'p');
      if (Below(4) == 0) std::erase_if(number, [](char c) { return c == 'P' || c == 'f'; });
      return number;
    }
    std::string number(AnyLength(), ' ');
    for (char& c : number)
      c = m_symbols[Below(static_cast<unsigned>(m_symbols.size()))];
    m_used.push_back(number);
    return number;
  }

  void ChangeContact() {
    auto& [entryId, contact] = AnyContact();
    for (unsigned changes = Below(4); changes > 0; --changes) {
      contact.numbers[1 + Below(12)] = Below(4) == 0 ? "" : AnyNumber();
    }
    const unsigned fault = Below(40);
    const int unreadable = static_cast<int>(Below(30));
    const bool isDeleted = Below(6) == 0;
    Both([&](auto& index) {
      CBookItem item(entryId, contact);
      item.hasEntryId = fault != 0;
      item.isSaved = fault < 1 || fault > 4;
      item.saves = fault != 2;
      item.savesForGood = fault != 3;
      item.hasFileAs = fault != 5;
      item.unreadableType = unreadable;
      if (isDeleted) {
        index.OnContactItemDelete(item);
      } else {
        index.TelNoCheckAndUpdate(item);
      }
      return std::string();
    });
  }

  void AddSomething() {
    const std::string number = AnyNumber();
    const std::string entryId = Below(50) == 0 ? "" : AnyContact().first;
    const int type = 1 + static_cast<int>(Below(12));
    const int digit = Below(4) == 0 ? static_cast<int>(Below(9)) : -1;
    const unsigned times = Below(30) == 0 ? 70 : 1;
    for (unsigned i = 0; i < times; ++i) {
      Both([&](auto& index) {
        if (digit < 0) {
          index.AddContactSearchData(number, entryId, type, "");
        } else {
          index.InsertContactSearchData(digit, TailFor(digit, number), entryId, type, "");
        }
        return std::string();
      });
    }
  }

  // Usually a key of the table's length, sometimes not.
  static std::string TailFor(int digit, const std::string& number) {
    const size_t length = static_cast<size_t>(digit) + 4;
    return digit > 0 && number.size() > length ? number.substr(number.size() - length) : number;
  }

  void DeleteSomething() {
    const std::string entryId = AnyContact().first;
    const int type = 1 + static_cast<int>(Below(12));
    const int digit = static_cast<int>(Below(9));
    const std::string key = TailFor(digit, AnyNumber());
    const bool isWholeContact = Below(2) == 0;
    Both([&](auto& index) {
      if (isWholeContact) {
        index.DeleteContactSearchDataByEntryID(entryId, type);
      } else {
        index.DeleteContactSearchData(digit, key, entryId, type);
      }
      return std::string();
    });
  }

  void LookUp() {
    const std::string number = AnyNumber();
    const bool check = Below(3) != 0;
    switch (Below(4)) {
      case 0:
        Find(static_cast<int>(Below(9)), number, check);
        break;
      case 1:
        Both([&](auto& index) {
          ContactMatch match = Untouched();
          const bool isFound = index.FindPhoneNumber(number, check, match);
          return Describe(isFound, match);
        });
        break;
      default:
        Both([&](auto& index) {
          ContactMatch match = Untouched();
          const bool isFound = index.SearchPhoneNumber(number, check, match);
          return Describe(isFound, match);
        });
    }
  }

  void Find(int digit, const std::string& number, bool check) {
    Both([&](auto& index) {
      ContactMatch match = Untouched();
      const bool isFound = index.FindContactSearchData(digit, number, check, match);
      return Describe(isFound, match);
    });
  }

  static ContactMatch Untouched() { return {"as before", "as before", 99}; }
  static std::string Describe(bool isFound, const ContactMatch& match) {
    return (isFound ? "found " : "not found ") + match.entryId + ", " + match.name + ", " +
           std::to_string(match.telNumberType);
  }

  template <class Operation>
  void Both(Operation operation) {
    const std::string expected = operation(m_model);
    const std::string actual = operation(m_index);
    ASSERT_EQ(actual, expected);
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

TEST(IndexHistory, EqualsTheWalkThroughTheTables) {
  const char* const soak = std::getenv("QUOR_INDEX_STEPS");
  const long steps = soak != nullptr ? std::atol(soak) : 30'000;
  ASSERT_GT(steps, 0);
  for (long done = 0; done < steps; done += kStepsOfHistory) {
    const auto seed = static_cast<unsigned>(done / kStepsOfHistory);
    SCOPED_TRACE("history " + std::to_string(seed));
    CHistory history(seed);
    for (int step = 0; step < kStepsOfHistory && !testing::Test::HasFatalFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      history.Step();
    }
    if (!testing::Test::HasFatalFailure()) history.Drain();
    if (testing::Test::HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace quor
