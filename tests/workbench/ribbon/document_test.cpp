#include "workbench/ribbon/document.h"

#include <gtest/gtest.h>

#include "workbench/ribbon/xml_reader.h"

namespace quor::workbench {
namespace {

const std::string kStart =
    "<customUI xmlns=\"http://schemas.microsoft.com/office/2006/01/customui\"";

// Wraps the content in a document with one group on the mail tab.
std::string InGroup(const std::string& content) {
  return kStart + "><ribbon><tabs><tab idMso=\"TabMail\"><group id=\"G\">" + content +
         "</group></tab></tabs></ribbon></customUI>";
}

std::string InTabs(const std::string& content) {
  return kStart + "><ribbon><tabs>" + content + "</tabs></ribbon></customUI>";
}

std::string InMenu(const std::string& content) {
  return InGroup("<menu id=\"M\">" + content + "</menu>");
}

std::string Repeated(const std::string& text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i)
    result += text;
  return result;
}

TEST(RibbonDocument, AcceptsWhatOfficeAccepts) {
  const std::string documents[] = {
      kStart + "/>",
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-16\"?><!-- ours -->\r\n" + kStart +
          " onLoad='L'><ribbon/></customUI>",
      "<c:customUI xmlns:c=\"http://schemas.microsoft.com/office/2006/01/customui\"><c:ribbon/>"
      "</c:customUI>",
      InGroup("<comboBox id=\"C\" getText=\"T\" onChange=\"C\" getItemCount=\"N\" "
              "getItemLabel=\"L\" getLabel=\"L\"/>"),
      InGroup("<comboBox id=\"C\"><item id=\"I\" label=\"&lt;&#233;&#x2013;\"/></comboBox>"),
      InGroup("<button id=\"B\" size=\"large\" label=\"Call &amp; talk\" visible=\"1\"/>"
              "<separator/><dialogBoxLauncher><button id=\"D\"/></dialogBoxLauncher>"),
      InMenu("<button id=\"B\" keytip=\"ABC\"/><menuSeparator id=\"S\" title=\"T\"/>"
             "<menu id=\"N\" itemSize=\"large\"><button id=\"O\"/></menu>"),
      InGroup("<splitButton id=\"S\"><button id=\"B\"/><menu id=\"M\"/></splitButton>"),
      InGroup("<button id=\"B\" label=\"" + Repeated("\xC3\xA9", 1024) + "\"/>"),
      InTabs("<tab idMso=\"TabCalendar\"><group id=\"G\" insertBeforeMso=\"GroupCalendarNew\"/>"
             "</tab><tab id=\"Own\" insertAfterMso=\"TabMail\"/>"),
  };
  for (const std::string& document : documents) {
    EXPECT_NO_THROW(ReadRibbonDocument(document, RibbonWindow::Explorer)) << document;
  }
}

struct Refused {
  std::string document;
  const char* reason;  // part of the message
};

void ExpectRefused(const Refused& refused) {
  try {
    ReadRibbonDocument(refused.document, RibbonWindow::Explorer);
    ADD_FAILURE() << "accepted: " << refused.document;
  } catch (const CDocumentError& error) {
    EXPECT_NE(std::string(error.what()).find(refused.reason), std::string::npos)
        << error.what() << "\n for " << refused.document;
  }
}

TEST(RibbonDocument, RefusesWhatTheSchemaRefuses) {
  const Refused documents[] = {
      {"<customUI/>", "namespace"},
      {"<ribbon/>", "root"},
      {kStart + "><ribbon/><commands/></customUI>", "too late"},
      {kStart + "><ribbon/><ribbon/></customUI>", "2 ribbon"},
      {kStart + " onload=\"L\"/>", "onload"},
      {InTabs(""), "0 tab"},
      {InGroup("<Button id=\"B\"/>"), "Button is not allowed"},
      {InGroup("<button id=\"B\" onaction=\"A\"/>"), "onaction"},
      {InGroup("<button/>"), "no id"},
      {InGroup("<button id=\"G\"/>"), "twice"},
      {InGroup("<button id=\"1B\"/>"), "not a name"},
      {InGroup("<button id=\"B\" label=\"\"/>"), "1 to 1024"},
      {InGroup("<button id=\"B\" onAction=\"\"/>"), "1 to 1024"},
      {InGroup("<button id=\"B\" label=\"" + Repeated("x", 1025) + "\"/>"), "1 to 1024"},
      {InGroup("<button id=\"B\" keytip=\"ABCD\"/>"), "1 to 3"},
      {InGroup("<button id=\"B\" enabled=\"True\"/>"), "true or false"},
      {InGroup("<button id=\"B\" size=\"small\"/>"), "normal or large"},
      {InGroup("<comboBox id=\"C\" onAction=\"A\"/>"), "onAction"},
      {InGroup("<comboBox id=\"C\" size=\"large\"/>"), "size"},
      {InGroup("<comboBox id=\"C\"><button id=\"B\"/></comboBox>"), "button is not allowed"},
      {InGroup("<comboBox id=\"C\" maxLength=\"0\"/>"), "1 to 1024"},
      {InMenu("<button id=\"B\" size=\"large\"/>"), "size"},
      {InMenu("<comboBox id=\"C\"/>"), "comboBox is not allowed"},
      {InMenu("<separator/>"), "separator is not allowed"},
      {InMenu(Repeated("<menuSeparator/>", 1001)), "1001"},
      {InGroup("<dialogBoxLauncher><button id=\"D\"/></dialogBoxLauncher><button id=\"B\"/>"),
       "too late"},
      {InGroup("<splitButton id=\"S\"><button id=\"B\"/></splitButton>"), "0 menu"},
      {InGroup("<dynamicMenu id=\"D\"/>"), "getContent"},
      {InTabs("<tab idMso=\"TabMail\"><group id=\"G\" enabled=\"true\"/></tab>"), "enabled"},
      {InGroup("text"), "text"},
  };
  for (const Refused& refused : documents)
    ExpectRefused(refused);
}

TEST(RibbonDocument, RefusesWhatOnlyOfficeRefuses) {
  const Refused documents[] = {
      {InGroup("<button id=\"B\" label=\"L\" getLabel=\"L\"/>"), "both label and getLabel"},
      {InGroup("<button id=\"B\" image=\"I\" getImage=\"G\"/>"), "both image and getImage"},
      {InGroup("<button id=\"B\" idMso=\"M\"/>"), "both id and idMso"},
      {InGroup("<button id=\"B\" insertBeforeMso=\"A\" insertAfterQ=\"x:B\"/>"), "both insert"},
      {InTabs("<tab idMso=\"TabMial\"/>"), "no built-in tab TabMial"},
      {InTabs("<tab idMso=\"TabContact\"/>"), "no built-in tab TabContact"},
      {InTabs("<tab idMso=\"TabJournals\"><group id=\"G\" insertBeforeMso=\"GroupJournalsNew\"/>"
              "</tab>"),
       "no built-in group GroupJournalsNew"},
  };
  for (const Refused& refused : documents)
    ExpectRefused(refused);
}

TEST(RibbonDocument, RefusesWhatIsNotWellFormed) {
  const Refused documents[] = {
      {"", "too early"},
      {kStart + ">", "too early"},
      {kStart + "></customUi>", "end tag"},
      {kStart + "/>x", "behind the root"},
      {"<!DOCTYPE customUI>" + kStart + "/>", "document type"},
      {InGroup("<button id=\"B\" id=\"C\"/>"), "twice"},
      {InGroup("<button id=B/>"), "quotes"},
      {InGroup("<button id=\"B\"label=\"L\"/>"), "expected >"},
      {InGroup("<button id=\"B\" label=\"&nbsp;\"/>"), "unknown entity"},
      {InGroup("<button id=\"B\" label=\"&#1;\"/>"), "character XML does not have"},
      {InGroup("<button id=\"B\" label=\"<\"/>"), "< in an attribute"},
      {InGroup("<x:button id=\"B\"/>"), "not declared"},
      {InGroup("<![CDATA[x]]>"), "text"},
      {InMenu(Repeated("<menu id=\"x\">", 300)), "too deep"},
  };
  for (const Refused& refused : documents)
    ExpectRefused(refused);
}

TEST(RibbonDocument, NamesTheLineOfTheFault) {
  ExpectRefused({kStart + ">\n<ribbon>\n<tabs>\n<tba/>", "line 4: the document ends"});
  ExpectRefused({kStart + ">\n<ribbon>\n<tabs>\n<tba/></tabs></ribbon></customUI>", "line 4: tba"});
}

TEST(RibbonDocument, KeepsOrderIdsAndTexts) {
  const RibbonNode root = ReadRibbonDocument(
      InMenu("<button id=\"One\" label=\"&amp;A\"/><button idQ=\"Two\"/>"), RibbonWindow::Explorer);
  const RibbonNode& menu = root.children[0].children[0].children[0].children[0].children[0];
  ASSERT_EQ(menu.children.size(), 2u);
  EXPECT_EQ(menu.children[0].id, "One");
  EXPECT_EQ(menu.children[0].Attribute("label"), "&A");
  EXPECT_EQ(menu.children[1].id, "Two");
  EXPECT_TRUE(menu.children[1].custom);
}

}  // namespace
}  // namespace quor::workbench
