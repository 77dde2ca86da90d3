#include "contacts/phone_number_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/contacts/address_book.h"
#include "text/format.h"

namespace quor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PhoneNumberIndex : public testing::Test {
 protected:
  void Store(const std::string& entryId, const std::string& number, int type = 2) {
    m_book[entryId].fileAs = "Name of " + entryId;
    m_index.AddContactSearchData(number, entryId, type, m_book[entryId].fileAs);
  }
  std::string Find(const std::string& number, bool check = true) {
    ContactMatch match;
    return m_index.FindPhoneNumber(number, check, match) ? match.entryId : "";
  }
  // "matched digits, kind, entry ID, more contacts" of a number that is found or searched.
  std::string Rated(const std::string& number) {
    ContactMatch match;
    if (!m_index.FindPhoneNumber(number, true, match) &&
        !m_index.SearchPhoneNumber(number, true, match)) {
      return "";
    }
    return Format("%zu, %d, %s, %zu", match.matchedDigits, match.telNumberType,
                  match.entryId.c_str(), match.moreContacts);
  }
  std::string Search(const std::string& number) {
    ContactMatch match;
    return m_index.SearchPhoneNumber(number, true, match) ? match.entryId : "";
  }
  void Change(const std::string& entryId, int type, const std::string& number) {
    m_book[entryId].numbers[static_cast<size_t>(type)] = number;
    CBookItem item(entryId, m_book[entryId]);
    m_index.TelNoCheckAndUpdate(item);
  }
  std::vector<std::string> Logged() { return m_transcript.Take(); }

  AddressBook m_book;
  CTranscript m_transcript;
  CDiagnosticLog m_log{m_transcript};
  CBookDirectory m_directory{m_book, m_transcript};
  CPhoneNumberIndex m_index{m_directory, m_log};
};

TEST_F(PhoneNumberIndex, MatchesTailsOfFiveToTwelveCharacters) {
  Store("A", "491715550123");
  Store("B", "1234");
  struct {
    const char* number;
    const char* found;
    const char* searched;
  } const rows[] = {
      {"01715550123", "A", "A"},  // as 1715550123, in table 6
      {"50123", "A", "A"},
      {"0123", "", ""},
      {"00491715550123", "A", "A"},
      {"0049171555012399", "", ""},
      {"99991715550123", "", "A"},  // only its last ten characters are A's
      {"1234", "B", ""},            // short numbers are found whole only
      {"01234", "", ""},            // too short for the zero to be removed
      {"", "", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Find(row.number), row.found) << row.number;
    EXPECT_EQ(Search(row.number), row.searched) << row.number;
  }
}

TEST_F(PhoneNumberIndex, LeavesPauseCharactersOutOnlyWhenChecked) {
  Store("A", "12345P67");
  Store("B", "12P4");
  EXPECT_EQ(Find("12345p67", false), "A");
  EXPECT_EQ(Find("1234567", false), "");
  EXPECT_EQ(Find("1234567"), "");     // the key is in another table
  EXPECT_EQ(Search("1234567"), "A");  // searches all tables
  EXPECT_EQ(Search("12FF4"), "B");    // table 0 included
  EXPECT_EQ(Find("124"), "B");
}

TEST_F(PhoneNumberIndex, RatesItsMatches) {
  Store("A", "491715550123", 10);
  EXPECT_EQ(Rated("491715550123"), "12, 10, A, 0");
  EXPECT_EQ(Rated("01715550123"), "10, 10, A, 0");
  EXPECT_EQ(Rated("9995550123"), "7, 10, A, 0");
  EXPECT_EQ(Rated("0049171555P0123"), "12, 10, A, 0");
  // One contact counts once, however many of its numbers and records there are, and wherever.
  Store("B", "4411150123", 2);
  Store("C", "50123", 7);
  Store("B", "150123", 3);
  Store("E", "330150123", 2);
  EXPECT_EQ(Rated("50123"), "5, 10, A, 3");
  EXPECT_EQ(Rated("0150123"), "6, 2, B, 1");
  // Who has been deleted no longer counts, though records are left; nor who is found not to open.
  CBookItem deleted("C", m_book["C"]);
  m_index.OnContactItemDelete(deleted);
  EXPECT_EQ(Rated("50123"), "5, 10, A, 2");
  m_book["A"].opens = false;
  EXPECT_EQ(Rated("50123"), "5, 2, B, 1");
  Store("D", "1234", 1);
  Store("F", "551234", 1);
  EXPECT_EQ(Rated("1234"), "4, 1, D, 0");
}

TEST_F(PhoneNumberIndex, FirstKeyInByteOrderWinsEvenOverTheExactOne) {
  Store("exact", "12345p67");
  Store("first", "12345P67");
  EXPECT_EQ(Find("12345p67", false), "first");
}

TEST_F(PhoneNumberIndex, OnlyTheFirstMatchingKeyOfATableIsTried) {
  Store("gone", "123456F");
  Store("there", "123456P");
  m_book["gone"].opens = false;
  EXPECT_EQ(Search("123456"), "");  // every tail finds the missing contact first
  EXPECT_EQ(Search("123456"), "there");
}

TEST_F(PhoneNumberIndex, OldNumbersStayUntilTheirContactIsGone) {
  Change("A", 1, "1111111");
  Change("A", 7, "7777777");
  Change("A", 1, "");
  Change("A", 7, "");
  EXPECT_EQ(Search("1111111"), "A");  // type 1's own keys were already dropped
  EXPECT_EQ(Search("7777777"), "A");
  m_book["A"].opens = false;
  EXPECT_EQ(Search("7777777"), "");
  m_book["A"].opens = true;
  EXPECT_EQ(Search("7777777"), "");

  Store("B", "1212121", 1);
  Change("B", 1, "3434343");
  EXPECT_EQ(Search("1212121"), "");
}

TEST_F(PhoneNumberIndex, TakesNumbersOfAnyLength) {
  for (const size_t length : {65'535U, 65'536U, 65'537U, 200'000U}) {
    Store("A", std::string(length, '5') + "123456789012");
    EXPECT_EQ(Find(std::string(length, '7') + "123456789012"), "A");
    EXPECT_EQ(Search(std::string(length, '7') + "56789012"), "A");
    EXPECT_EQ(Search(std::string(length, 'P') + "00000"), "");
    Store("pauses", std::string(length, 'f'));
    EXPECT_EQ(Search(std::string(length, 'p')), "pauses");
  }
}

TEST_F(PhoneNumberIndex, LogsALongSearchToItsEnd) {
  m_log.SetEnabled(true);
  EXPECT_EQ(Search(std::string(3000, '7')), "");
  EXPECT_EQ(Logged().size(), 1 + (3000 - 4) * 9 * 2);
}

TEST_F(PhoneNumberIndex, IgnoresTypesAndTablesThatDoNotExist) {
  for (const int type : {0, 13, -1, 16 + 2})
    Store("A", "1234567", type);
  ContactMatch match;
  for (const int digit : {-1, 9}) {
    m_index.InsertContactSearchData(digit, "1234567", "A", 2, "");
    m_index.DeleteContactSearchData(digit, "1234567", "A", 2);
    EXPECT_FALSE(m_index.FindContactSearchData(digit, "1234567", false, match));
  }
  EXPECT_EQ(Search("1234567"), "");
}

// Entry IDs from two folders differ only in their prefixes.
TEST_F(PhoneNumberIndex, KeepsThousandsApart) {
  constexpr unsigned kContacts = 20'000;
  constexpr unsigned kInFolder = kContacts / 2;
  const auto idOf = [](unsigned i) {
    return std::string(40, i < kInFolder ? 'A' : 'B') + std::to_string(i % kInFolder);
  };
  const auto numberOf = [](unsigned i) { return std::to_string(4'900'000'000 + i * 7919ULL * 13); };
  for (unsigned i = 0; i < kContacts; ++i)
    Store(idOf(i), numberOf(i), 1);
  for (unsigned i = 0; i < kContacts; ++i) {
    ASSERT_EQ(Search("0049" + numberOf(i)), idOf(i));
    ASSERT_EQ(Find(numberOf(i), false), idOf(i));
  }
  for (unsigned i = 0; i < kContacts; i += 2) {
    m_index.DeleteContactSearchDataByEntryID(idOf(i), 1);
  }
  for (unsigned i = 0; i < kContacts; ++i) {
    ASSERT_EQ(Find(numberOf(i)), i % 2 == 0 ? "" : idOf(i));
  }
}

// Opening a contact pumps messages, so the index may be changed meanwhile.

TEST_F(PhoneNumberIndex, SurvivesThatTheRecordsGoWhileOneIsTried) {
  Store("of the next key", "123456P");
  for (const bool isSeveral : {false, true}) {
    Store("A", "123456F", 1);
    if (isSeveral) Store("B", "123456F", 1);
    m_book["A"].opens = false;
    m_directory.meanwhile = [&] {
      m_index.DeleteContactSearchDataByEntryID("A", 1);
      m_index.DeleteContactSearchDataByEntryID("B", 1);
    };
    EXPECT_EQ(Find("123456F"), "");
    EXPECT_EQ(Find("123456F", false), "");
  }
}

TEST_F(PhoneNumberIndex, SurvivesThatTheNumberGoesWhileARecordIsTried) {
  for (const bool isLogged : {false, true}) {
    m_log.SetEnabled(isLogged);
    Store("A", "49301234567890");
    Store("B", "567890");
    Store("C", "12P34567890");
    m_book["A"].opens = false;
    auto number = std::make_unique<std::string>("0049301234567890");
    m_directory.meanwhile = [&] { number.reset(); };
    ContactMatch match;
    EXPECT_TRUE(m_index.SearchPhoneNumber(*number, true, match));
    EXPECT_EQ(match.entryId, "C");
  }
}

TEST_F(PhoneNumberIndex, SurvivesThatItGrowsWhileARecordIsTried) {
  Store("A", "1234567");
  Store("B", "1234567");
  m_book["A"].opens = false;
  m_directory.meanwhile = [&, calls = 0]() mutable {
    if (++calls > 1) return;
    for (unsigned i = 0; i < 5000; ++i)
      Store("new " + std::to_string(i), std::to_string(i * 7919));
    EXPECT_EQ(Search("7919000"), "new 1000");
  };
  EXPECT_EQ(Find("1234567"), "B");
  EXPECT_EQ(Find("1234567", false), "B");
}

TEST_F(PhoneNumberIndex, ReadsTheDialCharactersOfTheFirstThirtyTwo) {
  BookContact contact;
  contact.numbers[3] = "+49 (171) 555-0123 extension p 12345";
  CBookItem item("A", contact);
  std::string number;
  GetContactTelNumber(item, 3, number);
  EXPECT_EQ(number, "491715550123p1");
  item.unreadableType = 3;
  GetContactTelNumber(item, 3, number);
  EXPECT_THAT(number, IsEmpty());
}

}  // namespace
}  // namespace quor
