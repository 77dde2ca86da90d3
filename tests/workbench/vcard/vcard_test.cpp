#include "workbench/vcard/vcard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quor::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A version 3.0 card with the given lines.
std::string CardText(const std::string& lines) {
  return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "\r\nEND:VCARD\r\n";
}

Card ReadOne(const std::string& lines) {
  const CardFile file = ReadCards(CardText(lines));
  EXPECT_THAT(file.errors, IsEmpty());
  if (file.cards.size() != 1) {
    ADD_FAILURE() << file.cards.size() << " cards";
    return {};
  }
  return file.cards.front();
}

std::vector<std::string> Errors(const std::string& text) {
  std::vector<std::string> errors;
  for (const CardError& error : ReadCards(text).errors) {
    errors.push_back(std::to_string(error.line) + ": " + error.text);
  }
  return errors;
}

MATCHER_P2(IsNumber, kind, number, "") {
  return arg.kind == kind && arg.number == number;
}

TEST(VCard, ReadsNamesUnescapedAndUnfolded) {
  const Card card = ReadOne(
      "item1.FN:Zo\xC3\xAB\r\n  Lee\\, Dr.\r\nN:Lee;Zo\xC3\xAB;Ann;Dr.;\r\n"
      "ORG:Kr\\;nke;Sales\r\nnote;charset=utf-8:one\\ntwo\\\\\r\nX-FOLDER:Customers/North\r\n"
      "PHOTO;ENCODING=b:AAAA\r\n AAAA");
  EXPECT_EQ(card.fullName, "Zo\xC3\xAB Lee, Dr.");
  EXPECT_EQ(card.lastName, "Lee");
  EXPECT_EQ(card.firstName, "Zo\xC3\xAB Ann");
  EXPECT_EQ(card.company, "Kr;nke");
  EXPECT_EQ(card.note, "one\ntwo\\");
  EXPECT_EQ(card.folder, "Customers/North");
  EXPECT_EQ(card.fileAs, "Lee, Zo\xC3\xAB Ann");
  EXPECT_EQ(card.line, 1);
}

TEST(VCard, FilesByWhatThereIs) {
  EXPECT_EQ(ReadOne("FN:x\nN:Lee;Anna\nX-FILE-AS:Boss").fileAs, "Boss");
  EXPECT_EQ(ReadOne("FN:x\nN:Lee;;\nORG:Acme").fileAs, "Lee");
  EXPECT_EQ(ReadOne("FN:x\nN:;Anna\nORG:Acme").fileAs, "Anna");
  EXPECT_EQ(ReadOne("FN:x\nN:;;;;\nORG:Acme").fileAs, "Acme");
  EXPECT_EQ(ReadOne("FN:Anna Lee").fileAs, "Anna Lee");
  EXPECT_EQ(ReadOne("N:Lee;Anna").fullName, "Anna Lee");
  EXPECT_EQ(ReadOne("TEL:1").fileAs, "");
}

TEST(VCard, NumbersGoByTheirTypes) {
  const struct {
    const char* parameters;
    NumberKind kind;
  } rows[] = {
      {"TYPE=work,voice", NumberKind::Business}, {"TYPE=HOME", NumberKind::Home},
      {"WORK;FAX", NumberKind::BusinessFax},     {"TYPE=fax;TYPE=home", NumberKind::HomeFax},
      {"TYPE=fax", NumberKind::OtherFax},        {"TYPE=\"cell,work\"", NumberKind::Mobile},
      {"TYPE=pager", NumberKind::Pager},         {"TYPE=car", NumberKind::Car},
      {"TYPE=isdn,work", NumberKind::Isdn},      {"TYPE=textphone", NumberKind::TtyTdd},
      {"TYPE=x-tty", NumberKind::TtyTdd},        {"TYPE=x-assistant", NumberKind::Assistant},
      {"TYPE=x-callback", NumberKind::Callback}, {"TYPE=x-company,work", NumberKind::CompanyMain},
      {"TYPE=x-other", NumberKind::Other},       {"TYPE=x-primary", NumberKind::Primary},
      {"TYPE=x-radio", NumberKind::Radio},       {"TYPE=x-telex", NumberKind::Telex},
      {"PREF=1", NumberKind::Primary},           {"TYPE=pref,home", NumberKind::Home},
      {"TYPE=voice", NumberKind::Other},
  };
  for (const auto& row : rows) {
    EXPECT_THAT(ReadOne(std::string("FN:x\nTEL;") + row.parameters + ":5").numbers,
                ElementsAre(IsNumber(row.kind, "5")))
        << row.parameters;
  }
}

TEST(VCard, SecondNumbersFindTheNextField) {
  const CardFile file = ReadCards(
      CardText("FN:x\nTEL;TYPE=work:1\nTEL;TYPE=work:2\nTEL;TYPE=work:3\nTEL;TYPE=work:4\n"
               "TEL;TYPE=home:5\nTEL;TYPE=home:6\nTEL:7\nTEL:8"));
  ASSERT_EQ(file.cards.size(), 1u);
  EXPECT_THAT(file.cards[0].numbers,
              ElementsAre(IsNumber(NumberKind::Business, "1"), IsNumber(NumberKind::Business2, "2"),
                          IsNumber(NumberKind::Other, "3"), IsNumber(NumberKind::Home, "5"),
                          IsNumber(NumberKind::Home2, "6"), IsNumber(NumberKind::Primary, "7")));
  ASSERT_EQ(file.errors.size(), 2u);
  EXPECT_EQ(file.errors[0].line, 7);
  EXPECT_EQ(file.errors[1].line, 11);
}

TEST(VCard, TelephoneUrisBecomeNumbers) {
  const auto number = [](const std::string& value) {
    const Card card = ReadOne("FN:x\nTEL;VALUE=uri:" + value);
    return card.numbers.empty() ? std::string("none") : card.numbers[0].number;
  };
  EXPECT_EQ(number("tel:+1-418-656-9254;ext=102"), "+1-418-656-9254 x102");
  EXPECT_EQ(number("TEL:%2B33%201;phone-context=example.com"), "+33 1");
  EXPECT_EQ(number("tel:5%4"), "5%4");
  EXPECT_EQ(number("tel:"), "none");
}

TEST(VCard, GroupsKeepTheirMembers) {
  const Card modern = ReadOne("FN:Team\nKIND:group\nMEMBER:urn:uuid:1\nMEMBER:mailto:a@b");
  EXPECT_TRUE(modern.group);
  EXPECT_THAT(modern.members, ElementsAre("urn:uuid:1", "mailto:a@b"));
  EXPECT_TRUE(ReadOne("FN:Team\nX-ADDRESSBOOKSERVER-KIND:group").group);
  EXPECT_FALSE(ReadOne("FN:Anna\nKIND:individual").group);
}

TEST(VCard, SaysWhereATextIsWrong) {
  EXPECT_THAT(Errors("hello\nworld\n" + CardText("FN:x")), ElementsAre("1: text outside a card"));
  EXPECT_THAT(Errors("BEGIN:VCARD\nVERSION:2.1\nFN:x\nEND:VCARD"),
              ElementsAre("2: version 2.1 is not 3.0 or 4.0"));
  EXPECT_THAT(Errors("BEGIN:VCARD\nFN:x\nEND:VCARD"), ElementsAre("3: the card has no version"));
  EXPECT_THAT(Errors("\n\nBEGIN:VCARD\nVERSION:4.0\n"), ElementsAre("3: the card does not end"));
  EXPECT_THAT(Errors(CardText("FN:x\nNOTE;LABEL=\"a:b")), ElementsAre("4: no property"));
  EXPECT_THAT(Errors(CardText("FN:\xC3(")), ElementsAre("3: FN is not UTF-8"));
  EXPECT_THAT(Errors(CardText("FN:\xED\xA0\x80")), ElementsAre("3: FN is not UTF-8"));
  EXPECT_THAT(Errors(CardText(std::string("FN:a\0b", 6))), ElementsAre("3: FN contains a NUL"));
  EXPECT_THAT(Errors(CardText("FN:x\nTEL:tel:%00")),
              ElementsAre("4: the number's escapes are not valid text"));
}

TEST(VCard, ReadsOnAfterABadCard) {
  const CardFile file =
      ReadCards("BEGIN:VCARD\nVERSION:3.0\nFN:lost\nTEL:1\n" + CardText("FN:\xFF") +
                "\xEF\xBB\xBF" + CardText("FN:stray mark") + CardText("FN:kept"));
  ASSERT_EQ(file.cards.size(), 1u);
  EXPECT_EQ(file.cards[0].fullName, "kept");
  EXPECT_THAT(file.cards[0].numbers, IsEmpty());
  EXPECT_EQ(file.errors[0].text, "a card begins within a card");
}

TEST(VCard, KeepsTheFirstHundredErrors) {
  std::string text;
  for (int i = 0; i < 300; ++i)
    text += CardText("junk");
  EXPECT_EQ(ReadCards(text).errors.size(), 100u);
  EXPECT_THAT(ReadCards(text).cards, IsEmpty());
}

}  // namespace
}  // namespace quor::workbench
