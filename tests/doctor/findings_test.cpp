#include "doctor/findings.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

#include "doctor/finding_texts.h"
#include "doctor/report.h"

namespace quor::doctor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A computer without problems: a 64-bit Outlook, and the add-in for all users in both bitnesses.
Facts WellFacts() {
  Facts facts;
  facts.windows = "Windows 10";
  facts.windowsBitness = 64;
  facts.outlooks = {{16, 64, "C:\\Office\\OUTLOOK.EXE", "16.0.1.0"}};
  for (const int bitness : {64, 32}) {
    facts.classes.push_back(
        {Scope::Machine, bitness, "C:\\q\\" + std::to_string(bitness), true, bitness, "1.0.0.0"});
    facts.addInKeys.push_back({Scope::Machine, bitness, 3});
    facts.libraries.push_back({bitness, "C:\\q\\SiUSBXp.dll", bitness, {}});
  }
  return facts;
}

std::vector<std::string> NamesOf(const Facts& facts) {
  std::vector<std::string> names;
  for (const Finding& finding : Examine(facts)) {
    names.emplace_back(Name(finding.kind));
  }
  return names;
}

TEST(FindingsTest, AWellComputerHasNone) {
  EXPECT_THAT(NamesOf(WellFacts()), IsEmpty());
  Facts running = WellFacts();
  running.running = {true, true, true, true};
  running.bases = {{"Telephone", false}};  // Outlook uses it
  for (const uint32_t shutdown : {600, 700, 499, 20, 499})
    running.sessions.push_back({"2009-03-07 08:05:09", 999, 499, shutdown});
  EXPECT_THAT(NamesOf(running), IsEmpty());
}

// doctor_check.sh plants each fault in a real registry; these are the cases behind it.
TEST(FindingsTest, EachFaultIsFoundAlone) {
  const struct {
    const char* expected;
    std::function<void(Facts&)> spoil;
  } cases[] = {
      // Of a bitness for which there is no Outlook.
      {"leftover", [](Facts& f) { f.classes[1].fileBitness = 64; }},
      // The user's registration and choice take precedence over those for all users.
      {"leftover",
       [](Facts& f) {
         f.classes.insert(f.classes.begin(), f.classes[0]);
         f.classes[0].scope = Scope::User;
         f.classes[1].fileExists = false;
       }},
      {"elevated-outlook",
       [](Facts& f) {
         f.classes[0].scope = Scope::User;  // the other bitness is for all users
         f.running.elevated = true;
       }},
      {"not-at-start", [](Facts& f) { f.addInKeys[0].loadBehavior.reset(); }},
      // A listed add-in.
      {"policy-signed-only",
       [](Facts& f) {
         f.policies = {{16, "1", true, true, false}};
       }},
      // The median of the last five starts.
      {"slow",
       [](Facts& f) {
         for (const uint32_t start : {5, 5, 5, 999, 2000, 1000, 3000, 10})
           f.sessions.push_back({"2009-03-07 08:05:09", start, {}, {}});
       }},
  };
  for (const auto& each : cases) {
    Facts facts = WellFacts();
    each.spoil(facts);
    EXPECT_THAT(NamesOf(facts), ElementsAre(each.expected));
  }
}

TEST(FindingsTest, WhatNoOutlookNeedsMayBeMissing) {
  // With a 64-bit Outlook, the 32-bit add-in or its library. Every Windows has the new Outlook; it
  // matters only without another one.
  Facts facts = WellFacts();
  facts.classes.pop_back();
  facts.addInKeys.pop_back();
  facts.libraries.back().path.clear();
  facts.newOutlookInstalled = true;
  EXPECT_THAT(NamesOf(facts), IsEmpty());
  facts.outlooks[0].bitness = 32;
  EXPECT_THAT(NamesOf(facts), ElementsAre("not-registered"));
  facts.outlooks.clear();
  EXPECT_THAT(NamesOf(facts), ElementsAre("no-outlook", "new-outlook"));
}

TEST(FindingTextsTest, EachFindingHasItsSentencesInEachLanguage) {
  for (size_t kind = 0; kind < static_cast<size_t>(FindingKind::Count); ++kind) {
    std::set<std::string> sentences;
    for (const Language language : {Language::English, Language::French, Language::Spanish}) {
      const Finding finding{static_cast<FindingKind>(kind), {"{A}", "8", "1"}};
      const Sentences words = InWords(finding, language);
      sentences.insert(words.what);
      for (const std::string& text : {words.what, words.cure}) {
        EXPECT_FALSE(text.empty()) << Name(finding.kind);
        EXPECT_EQ(text.find("{0}"), std::string::npos) << text;
        EXPECT_EQ(text.find("{1}"), std::string::npos) << text;
      }
    }
    EXPECT_EQ(sentences.size(), 3u) << Name(static_cast<FindingKind>(kind));
  }
}

TEST(ReportTest, TellsFindingsThenFacts) {
  Facts facts = WellFacts();
  facts.addInKeys[0].loadBehavior = 2;
  EXPECT_THAT(TextReport(facts, Examine(facts), Language::English),
              testing::StartsWith("(!) The plug-in is switched off in Outlook (LoadBehavior 2).\n"
                                  "    Repair it here, or tick \"Telephone Plug-in\" in Outlook's "
                                  "list of COM add-ins.\n"
                                  "\n"
                                  "What was looked at:\n"
                                  "  Windows 10, 64-bit\n"
                                  "  Outlook 16.0, 64-bit, 16.0.1.0, C:\\Office\\OUTLOOK.EXE\n"));
  const std::string json = JsonReport(facts, Examine(facts), Language::English);
  EXPECT_THAT(json, HasSubstr(R"("path":"C:\\Office\\OUTLOOK.EXE")"));
  EXPECT_THAT(json, HasSubstr(R"(tick \"Telephone Plug-in\" in)"));
}

}  // namespace
}  // namespace quor::doctor
