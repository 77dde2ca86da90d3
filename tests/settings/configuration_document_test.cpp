#include "settings/configuration_document.h"
#include "settings/entry_text.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/settings/configuration_samples.h"

namespace quor {

void PrintTo(const Configuration&, std::ostream* out) {
  *out << "a configuration";
}

namespace {

class CFrenchSystem final : public ISystemLanguage {
 public:
  int32_t LanguageNumber() override { return kFrench; }
};

XmlElement Value(std::wstring name, std::wstring text) {
  return {std::move(name), std::move(text), {}};
}
XmlElement Parent(std::wstring name, std::vector<XmlElement> children) {
  return {std::move(name), {}, std::move(children)};
}

// Reads a document with one section.
DocumentFindings Read(XmlElement section, Configuration& configuration) {
  CFrenchSystem system;
  return ReadConfiguration(Parent(L"Root", {std::move(section)}), system, configuration);
}

Configuration AfterSystemValue(const wchar_t* name, const wchar_t* text) {
  Configuration configuration;
  configuration.callerInfo = configuration.popUp = configuration.delayBtnEvent = 77;
  configuration.popUpModes.fill(77);
  Read(Parent(L"System", {Value(name, text), Parent(L"AliveCheck", {Value(name, text)})}),
       configuration);
  return configuration;
}

auto Everything(const Configuration& c) {
  return std::tie(c.aCheckInterval, c.connectInterval, c.dialClear, c.connectWait, c.debugLog,
                  c.delayBtnEvent, c.languageNo, c.callerInfo, c.popUp, c.popUpModes, c.mainToolBar,
                  c.contactToolBar, c.histories, c.callerLists, c.speedDials);
}

TEST(NumberFromText, ReadsAsMuchAsIsANumber) {
  constexpr int32_t kLargest = 2147483647;
  constexpr int32_t kSmallest = -kLargest - 1;
  const struct {
    const wchar_t* text;
    int32_t number;
  } cases[] = {
      {L"0", 0},
      {L"17", 17},
      {L"-17", -17},
      {L"+17", 17},
      {L" \t\r\n8", 8},
      {L"12abc", 12},
      {L"1 2", 1},
      {L"007", 7},
      {L"", 0},
      {L" ", 0},
      {L"abc", 0},
      {L"-", 0},
      {L"--5", 0},
      {L"- 5", 0},
      {L"0x10", 0},
      {L"\u0663", 0},
      {L"1\u0663", 1},
      {L"2147483647", kLargest},
      {L"2147483648", kLargest},
      {L"-2147483648", kSmallest},
      {L"-2147483649", kSmallest},
      {L"99999999999999999999999999", kLargest},
      {L"-99999999999999999999999999", kSmallest},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(NumberFromText(c.text), c.number) << testing::PrintToString(c.text);
  }
}

TEST(StorableText, DropsWhatAFileCannotCarry) {
  using namespace std::string_literals;
  for (const wchar_t* text : kAwkwardTexts)
    EXPECT_EQ(StorableText(text), text);
  const struct {
    std::wstring text;
    const wchar_t* safe;
  } cases[] = {
      {L"a\0b"s, L"ab"},
      {L"\x01\x08\x0b\x0c\x0e\x1f", L""},
      {L"a\xd83d", L"a"},
      {L"\xde00z", L"z"},
      {L"\xde00\xd83d", L""},
      {L"\xd83d\xd83d\xde00", L"\xd83d\xde00"},
      {L"\xfffe\xffffx", L"x"},
      {L"\xfffd\x7f", L"\xfffd\x7f"},
      {L"a\r\nb\rc\r\r\n", L"a\nb\nc\n\n"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(StorableText(c.text), c.safe);
}

TEST(ReadConfiguration, GivesElementsWithoutTextTheirDefault) {
  for (const wchar_t* empty : {L"", L" \n"}) {
    EXPECT_EQ(AfterSystemValue(L"LanguageNo", empty).languageNo, kFrench);
    EXPECT_EQ(AfterSystemValue(L"CallerInfo", empty).callerInfo, 1);
    EXPECT_EQ(AfterSystemValue(L"PopUp", empty).popUp, 77);
    EXPECT_EQ(AfterSystemValue(L"DelayBtnEvent", empty).delayBtnEvent, 0);
    EXPECT_EQ(AfterSystemValue(L"LinePopUp2", empty).popUpModes,
              (std::array<int32_t, kPopUpSlots>{77, 1, 77, 77, 77, 77}));
  }
}

TEST(ReadConfiguration, CorrectsSystemValues) {
  EXPECT_EQ(AfterSystemValue(L"CallerInfo", L"2").callerInfo, 1);
  EXPECT_EQ(AfterSystemValue(L"CallerInfo", L"3").callerInfo, 3);
  EXPECT_EQ(AfterSystemValue(L"LanguageNo", L"2").languageNo, kSpanish);
  EXPECT_EQ(AfterSystemValue(L"LanguageNo", L"-1").languageNo, -1);
  EXPECT_EQ(AfterSystemValue(L"CellPopUp4", L"9").popUpModes[5], 9);

  Configuration configuration;
  EXPECT_EQ(Read(Parent(L"System", {Value(L"LanguageNo", L"2")}), configuration).illegalLanguage,
            std::nullopt);
  EXPECT_EQ(Read(Parent(L"System", {Value(L"LanguageNo", L"3")}), configuration).illegalLanguage,
            3);
  EXPECT_EQ(configuration.languageNo, kEnglish);
}

TEST(ReadConfiguration, LeavesAloneWhatTheDocumentDoesNotMention) {
  const XmlElement strangers[] = {
      Parent(L"system", {Value(L"LanguageNo", L"1")}),
      Parent(L"System", {Value(L"languageNo", L"1"), Value(L"DebugLog", L"9"),
                         Parent(L"LinePopUp", {Value(L"LinePopUp1", L"5")})}),
      Parent(L"Unknown", {Parent(L"History", {})}),
      Parent(L"ToolBars", {Parent(L"MainToolBar", {Value(L"Unknown", L"1")}),
                           Parent(L"OtherToolBar", {Value(L"Width", L"1")})}),
  };
  for (const XmlElement& section : strangers) {
    Configuration configuration = FullConfiguration();
    Read(section, configuration);
    EXPECT_EQ(Everything(configuration), Everything(FullConfiguration())) << &section - strangers;
  }
}

TEST(ReadConfiguration, ReplacesTheListsAndToolbarsItFinds) {
  Configuration configuration = FullConfiguration();
  Read(Parent(L"Histories", {}), configuration);
  EXPECT_TRUE(configuration.histories.empty());
  EXPECT_EQ(configuration.callerLists.size(), 10u);

  // Fields in any order, an empty one, unknown ones between.
  Read(Parent(L"CallerLists",
              {Parent(L"CallerList", {Value(L"Number", L"5"), Value(L"Name", L"n")}),
               Parent(L"History", {Value(L"Number", L"6")}), Parent(L"CallerList", {})}),
       configuration);
  EXPECT_EQ(configuration.callerLists, (std::vector<CallEntry>{{L"n", L"", L"5"}, {}}));

  // A repeated section continues the list.
  const XmlElement speedDials =
      Parent(L"SpeedDials", {Parent(L"SpeedDial", {Value(L"Number", L"1")})});
  CFrenchSystem system;
  ReadConfiguration(Parent(L"Root", {speedDials, speedDials}), system, configuration);
  EXPECT_EQ(configuration.speedDials, (std::vector<SpeedDialEntry>{{L"", L"1"}, {L"", L"1"}}));

  Read(Parent(L"ToolBars", {Parent(L"ContactToolBar", {Value(L"Pos", L"4")})}), configuration);
  EXPECT_EQ(configuration.contactToolBar, (ToolBarRecord{1, 0, 0, 0, 0, 0, 4, 0}));
  EXPECT_EQ(configuration.mainToolBar, FullConfiguration().mainToolBar);
}

TEST(ReadConfiguration, KeepsTheNewestUpToEachLimit) {
  Configuration longer = FullConfiguration();
  longer.histories.resize(25, SampleCall(99));
  longer.callerLists.resize(25, SampleCall(99));
  longer.speedDials.resize(25, {L"more", L"1"});
  Configuration read;
  CFrenchSystem system;
  ReadConfiguration(WriteConfiguration(longer), system, read);
  EXPECT_EQ(Everything(read), Everything(FullConfiguration()));
}

TEST(WriteConfiguration, WritesWhatReadsBackAlike) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    const Configuration saved = RandomConfiguration(seed);
    Configuration read;
    CFrenchSystem system;
    ReadConfiguration(WriteConfiguration(saved), system, read);
    ASSERT_EQ(Everything(read), Everything(saved)) << seed;
  }
}

TEST(StorableText, EndsAtItsLimitAndNeverInsideAPair) {
  const std::wstring longer(kEntryTextLimit + 1, L'x');
  EXPECT_EQ(StorableText(longer).size(), kEntryTextLimit);
  for (size_t before : {kEntryTextLimit - 2, kEntryTextLimit - 1, kEntryTextLimit}) {
    const std::wstring kept = StorableText(std::wstring(before, L'x') + L"\xd83d\xde00 and more");
    EXPECT_EQ(kept.size(), before == kEntryTextLimit - 1 ? before : kEntryTextLimit);
    EXPECT_EQ(StorableText(kept), kept);
  }
}

TEST(LanguageNumberFromId, LooksAtThePrimaryLanguageOnly) {
  EXPECT_EQ(LanguageNumberFromId(0x0409), kEnglish);
  EXPECT_EQ(LanguageNumberFromId(0x0C0C), kFrench);
  EXPECT_EQ(LanguageNumberFromId(0x0C0A), kSpanish);
  EXPECT_EQ(LanguageNumberFromId(0x0C07), kEnglish);
}

}  // namespace
}  // namespace quor
