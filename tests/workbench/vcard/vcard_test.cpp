#include "workbench/vcard/vcard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quor::workbench {
namespace {

Card ReadOne(const std::string& lines) {
  return ReadCards("BEGIN:VCARD\r\nVERSION:4.0\r\n" + lines + "\r\nEND:VCARD\r\n").at(0);
}

TEST(VCard, ReadsNamesUnescapedAndUnfolded) {
  const Card card = ReadOne(
      "FN:Zo\xC3\xAB\r\n  Lee\\, Dr.\r\nN:Lee;Zo\xC3\xAB;;Dr.;\r\nORG:Kr\\;nke\r\n"
      "NOTE:one\\ntwo\\\\\r\nX-FOLDER:Customers/North\r\nPHOTO;ENCODING=b:AAAA\r\n AAAA");
  EXPECT_EQ(card.fullName, "Zo\xC3\xAB Lee, Dr.");
  EXPECT_EQ(card.company, "Kr;nke");
  EXPECT_EQ(card.note, "one\ntwo\\");
  EXPECT_EQ(card.folder, "Customers/North");
  EXPECT_EQ(card.fileAs, "Lee, Zo\xC3\xAB");
  EXPECT_EQ(ReadOne("FN:x\nN:;Anna\nORG:Acme").fileAs, "Anna");
  EXPECT_EQ(ReadOne("FN:x\nORG:Acme").fileAs, "Acme");
  EXPECT_EQ(ReadOne("FN:Team\nKIND:group\nMEMBER:urn:uuid:1").members.at(0), "urn:uuid:1");
}

TEST(VCard, NumbersGoByTheirTypes) {
  using enum NumberKind;
  const Card card = ReadOne(
      "TEL;TYPE=work:1\nTEL;VALUE=uri;TYPE=\"WORK\":tel:+2\nTEL;TYPE=work:3\nTEL;TYPE=home:4\n"
      "TEL;TYPE=home,fax:5\nTEL;TYPE=cell:6\nTEL:7\nTEL;TYPE=x-company:8");
  std::vector<std::pair<NumberKind, std::string>> numbers;
  for (const CardNumber& one : card.numbers)
    numbers.emplace_back(one.kind, one.number);
  using Number = std::pair<NumberKind, std::string>;
  EXPECT_THAT(numbers, testing::ElementsAre(Number(Business, "1"), Number(Business2, "+2"),
                                            Number(Other, "3"), Number(Home, "4"),
                                            Number(HomeFax, "5"), Number(Mobile, "6"),
                                            Number(Primary, "7"), Number(CompanyMain, "8")));
}

TEST(VCard, SaysWhereATextIsWrong) {
  for (const char* bad : {"hello", "FN:x", "BEGIN:VCARD\nFN:x", "BEGIN:VCARD\nBEGIN:VCARD",
                          "BEGIN:VCARD\nTEL;TYPE=car:1\nTEL;TYPE=car:2\nTEL;TYPE=car:3"}) {
    EXPECT_THROW(ReadCards(bad), CCardError) << bad;
  }
}

}  // namespace
}  // namespace quor::workbench
