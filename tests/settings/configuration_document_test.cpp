#include "settings/configuration_document.h"
#include "settings/entry_text.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/settings/configuration_samples.h"

namespace quor {

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

auto Everything(const Configuration& c) {
  return std::tie(c.aCheckInterval, c.connectInterval, c.dialClear, c.connectWait, c.debugLog,
                  c.delayBtnEvent, c.languageNo, c.callerInfo, c.popUp, c.popUpModes, c.recordCalls,
                  c.mainToolBar, c.contactToolBar, c.histories, c.callerLists, c.speedDials);
}

TEST(NumberFromText, ReadsAsMuchAsIsANumber) {
  constexpr int32_t kLargest = 2147483647;
  constexpr int32_t kSmallest = -kLargest - 1;
  const std::pair<const wchar_t*, int32_t> kCases[] = {
      {L"-17", -17},
      {L"+17", 17},
      {L" \t\r\n8", 8},
      {L"12abc", 12},
      {L"1 2", 1},
      {L"", 0},
      {L"abc", 0},
      {L"--5", 0},
      {L"- 5", 0},
      {L"0x10", 0},
      {L"1\u0663", 1},
      {L"2147483647", kLargest},
      {L"2147483648", kLargest},
      {L"-2147483648", kSmallest},
      {L"99999999999999999999999999", kLargest},
      {L"-99999999999999999999999999", kSmallest},
  };
  for (const auto& [text, number] : kCases)
    EXPECT_EQ(NumberFromText(text), number) << testing::PrintToString(text);
}

TEST(StorableText, DropsWhatAFileCannotCarryAndEndsAtItsLimit) {
  using namespace std::string_literals;
  const std::wstring most(kEntryTextLimit, L'x');
  const std::wstring fewer = most.substr(1);
  const std::pair<std::wstring, std::wstring> kCases[] = {
      {L" <b>&amp;\"'</b>]]> \t\n\xe9\u4e2d%41%00", L" <b>&amp;\"'</b>]]> \t\n\xe9\u4e2d%41%00"},
      {L"a\0b"s, L"ab"},
      {L"\x01\x08\x0b\x0c\x0e\x1f", L""},
      {L"a\xd83d", L"a"},
      {L"\xde00z", L"z"},
      {L"\xde00\xd83d", L""},
      {L"\xd83d\xd83d\xde00", L"\xd83d\xde00"},
      {L"\xfffe\xffffx", L"x"},
      {L"\xfffd\x7f", L"\xfffd\x7f"},
      {L"a\r\nb\rc\r\r\n", L"a\nb\nc\n\n"},
      {most + L"x", most},
      {fewer.substr(1) + L"\xd83d\xde00 and more", fewer.substr(1) + L"\xd83d\xde00"},
      {fewer + L"\xd83d\xde00 and more", fewer},
  };
  for (const auto& [text, storable] : kCases)
    EXPECT_EQ(StorableText(text), storable);
}

TEST(ReadConfiguration, CorrectsSystemValuesAndReplacesMissingOnes) {
  const struct {
    const wchar_t* element;
    const wchar_t* text;
    int32_t Configuration::*member;
    int32_t value;
  } kCases[] = {
      {L"LanguageNo", L" \n", &Configuration::languageNo, kFrench},
      {L"LanguageNo", L"-1", &Configuration::languageNo, -1},
      {L"LanguageNo", L"2", &Configuration::languageNo, kSpanish},
      {L"LanguageNo", L"3", &Configuration::languageNo, kEnglish},
      {L"languageNo", L"2", &Configuration::languageNo, kEnglish},
      {L"CallerInfo", L"", &Configuration::callerInfo, 1},
      {L"CallerInfo", L"2", &Configuration::callerInfo, 1},
      {L"CallerInfo", L"3", &Configuration::callerInfo, 3},
      {L"PopUp", L"", &Configuration::popUp, 77},
      {L"DebugLog", L"1", &Configuration::debugLog, 0},  // belongs to AliveCheck
      {L"RecordCalls", L"1", &Configuration::recordCalls, 1},
  };
  for (const auto& row : kCases) {
    Configuration configuration;
    configuration.callerInfo = configuration.popUp = 77;
    Read(Parent(L"System", {Value(row.element, row.text)}), configuration);
    EXPECT_EQ(configuration.*row.member, row.value) << testing::PrintToString(row.text);
  }
  Configuration configuration;
  configuration.popUpModes.fill(0);
  configuration.delayBtnEvent = configuration.recordCalls = 77;
  Read(Parent(L"System", {Value(L"LinePopUp2", L""), Value(L"CellPopUp4", L"9"),
                          Parent(L"AliveCheck", {Value(L"DelayBtnEvent", L"")})}),
       configuration);
  EXPECT_EQ(configuration.popUpModes, (std::array<int32_t, kPopUpSlots>{0, 1, 0, 0, 0, 9}));
  EXPECT_EQ(configuration.delayBtnEvent, 0);
  EXPECT_EQ(configuration.recordCalls, 0) << "in the file only while it is on";
}

TEST(ReadConfiguration, ReplacesTheListsAndToolbarsItFinds) {
  Configuration configuration;
  configuration.histories = configuration.callerLists = {SampleCall(1)};
  configuration.mainToolBar.left = 5;
  Read(Parent(L"Histories", {}), configuration);
  EXPECT_TRUE(configuration.histories.empty());
  EXPECT_EQ(configuration.callerLists.size(), 1u);

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

  Read(Parent(L"ToolBars", {Parent(L"ContactToolBar", {Value(L"Pos", L"4")}),
                            Parent(L"MainToolBar", {Value(L"Unknown", L"1")})}),
       configuration);
  EXPECT_EQ(configuration.contactToolBar, (ToolBarRecord{1, 0, 0, 0, 0, 0, 4, 0}));
  EXPECT_EQ(configuration.mainToolBar.left, 5);
}

TEST(ReadConfiguration, KeepsTheNewestUpToEachLimit) {
  Configuration longer;
  for (int i = 0; i < 25; ++i) {
    longer.histories.push_back(SampleCall(i));
    longer.speedDials.push_back({std::to_wstring(i), L"1"});
  }
  longer.callerLists = longer.histories;
  Configuration read;
  CFrenchSystem system;
  ReadConfiguration(WriteConfiguration(longer), system, read);
  longer.histories.resize(20);
  longer.callerLists.resize(10);
  longer.speedDials.resize(10);
  EXPECT_EQ(read.histories, longer.histories);
  EXPECT_EQ(read.callerLists, longer.callerLists);
  EXPECT_EQ(read.speedDials, longer.speedDials);
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

TEST(LanguageNumberFromId, LooksAtThePrimaryLanguageOnly) {
  EXPECT_EQ(LanguageNumberFromId(0x0409), kEnglish);
  EXPECT_EQ(LanguageNumberFromId(0x0C0C), kFrench);
  EXPECT_EQ(LanguageNumberFromId(0x0C0A), kSpanish);
  EXPECT_EQ(LanguageNumberFromId(0x0C07), kEnglish);
}

}  // namespace
}  // namespace quor
