#include "contacts/phone_number_index.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/contacts/address_book.h"
#include "text/format.h"

namespace quor {
namespace {

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
  std::string Search(const std::string& number) {
    ContactMatch match;
    return m_index.SearchPhoneNumber(number, true, match) ? Rated(match) : "";
  }
  static std::string Rated(const ContactMatch& match) {
    return Format("%s %d, %zu digits, %zu more", match.entryId.c_str(), match.telNumberType,
                  match.matchedDigits, match.moreContacts);
  }

  AddressBook m_book;
  CTranscript m_transcript;
  CDiagnosticLog m_log{m_transcript};
  CBookDirectory m_directory{m_book, m_transcript};
  CPhoneNumberIndex m_index{m_directory, m_log};
};

TEST_F(PhoneNumberIndex, FindsAndSearchesTheseNumbers) {
  Store("A", "491715550123", 10);
  Store("B", "4411150123", 7);
  Store("B", "150123", 3);
  Store("short", "1234", 1);
  Store("lower", "67890p12");
  Store("upper", "67890P12");
  Store("short pause", "98P6");
  const struct {
    std::string number;
    const char* unchecked;
    const char* found;
    const char* searched;
  } kRows[] = {
      {"491715550123", "A", "A", "A 10, 12 digits, 0 more"},
      {"01715550123", "A", "A", "A 10, 10 digits, 0 more"},  // without the trunk prefix
      {"00491715550123", "A", "A", "A 10, 12 digits, 0 more"},
      {"88881715550123", "", "", "A 10, 10 digits, 0 more"},
      {std::string(70'000, '7') + "50123", "", "", "A 10, 5 digits, 1 more"},
      {"50123", "A", "A", "A 10, 5 digits, 1 more"},
      {"150123", "B", "B", "B 7, 6 digits, 0 more"},
      {"0123", "", "", ""},
      {"1234", "short", "short", ""},  // found whole only
      {"01234", "", "", ""},           // too short for the zero to be removed
      {"", "", "", ""},
      {"67890p12", "upper", "upper", "upper 2, 7 digits, 1 more"},  // first in byte order
      {"6789012", "", "", "upper 2, 7 digits, 1 more"},
      {"986", "", "short pause", ""},
      {"98PP6", "", "", "short pause 2, 3 digits, 0 more"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Find(row.number, false), row.unchecked) << row.number;
    EXPECT_EQ(Find(row.number), row.found) << row.number;
    EXPECT_EQ(Search(row.number), row.searched) << row.number;
  }
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
  const auto idOf = [](unsigned i) {
    return std::string(40, i % 2 == 0 ? 'A' : 'B') + std::to_string(i / 2);
  };
  const auto numberOf = [](unsigned i) { return std::to_string(4'900'000'000 + i * 7919ULL * 13); };
  for (unsigned i = 0; i < kContacts; ++i)
    Store(idOf(i), numberOf(i), 1);
  for (unsigned i = 0; i < kContacts; i += 3)
    m_index.DeleteContactSearchDataByEntryID(idOf(i), 1);
  for (unsigned i = 0; i < kContacts; ++i)
    ASSERT_EQ(Find(numberOf(i)), i % 3 == 0 ? "" : idOf(i));
}

// Opening a contact pumps messages, so the index and the number may change meanwhile.

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

TEST_F(PhoneNumberIndex, SurvivesThatTheNumberGoesAndTheIndexGrowsWhileARecordIsTried) {
  m_log.SetEnabled(true);
  Store("A", "1234567890");
  Store("B", "1234567890");
  Store("C", "12P34567890");
  m_book["A"].opens = m_book["B"].opens = false;
  auto number = std::make_unique<std::string>("01234567890");
  m_directory.meanwhile = [&] {
    if (!std::exchange(number, nullptr)) return;
    for (unsigned i = 0; i < 5000; ++i)
      Store("new " + std::to_string(i), std::to_string(i * 7919));
  };
  ContactMatch match;
  EXPECT_TRUE(m_index.SearchPhoneNumber(*number, true, match));
  EXPECT_EQ(match.entryId, "C");
  EXPECT_EQ(Find("7919000"), "new 1000");
}

TEST_F(PhoneNumberIndex, ReadsTheDialCharactersOfTheFirstThirtyTwo) {
  BookContact contact;
  contact.numbers[3] = "+49 (171) 555-0123 extension p 12345";
  CBookItem item("A", contact);
  std::string number;
  GetContactTelNumber(item, 3, number);
  EXPECT_EQ(number, "491715550123p1");
  CBookItem neverSaved("", contact);
  m_index.TelNoCheckAndUpdate(neverSaved);
  ContactMatch match;
  EXPECT_FALSE(m_index.FindPhoneNumber("491715550123p1", false, match));
  item.unreadableType = 3;
  GetContactTelNumber(item, 3, number);
  EXPECT_EQ(number, "");
}

}  // namespace
}  // namespace quor
