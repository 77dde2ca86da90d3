#include "settings/configuration_file.h"

#include <gmock/gmock.h>
#include <msxml2.h>

#include <cstdio>

#include "com/com_pointers.h"
#include "settings/msxml_document.h"
#include "settings/system_language.h"
#include "tests/settings/configuration_samples.h"

namespace quor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

// A temporary folder with a configuration file.
class CConfigurationFileTest : public testing::Test, protected ILogWriter {
 protected:
  // A URL would decode this name differently.
  void SetUp() override {
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    char temporary[MAX_PATH];
    GetTempPathA(MAX_PATH, temporary);
    m_folder = std::string(temporary) + "quor %41 \xe9\\";
    CreateDirectoryA(m_folder.c_str(), nullptr);
    m_path = m_folder + "vex_cfg.xml";
    m_log.SetEnabled(true);
  }

  void TearDown() override {
    for (const std::string& name : FolderContent())
      DeleteFileA((m_folder + name).c_str());
    RemoveDirectoryA(m_folder.c_str());
    CoUninitialize();
  }

  std::vector<std::string> FolderContent() const {
    std::vector<std::string> names;
    WIN32_FIND_DATAA entry;
    const HANDLE search = FindFirstFileA((m_folder + "*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
      if (entry.cFileName[0] != '.') names.emplace_back(entry.cFileName);
    } while (FindNextFileA(search, &entry));
    FindClose(search);
    return names;
  }

  void WriteContent(const std::string& content) const {
    std::FILE* file = std::fopen(m_path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite(content.data(), 1, content.size(), file);
    std::fclose(file);
  }

  std::string Content(const std::string& name) const {
    std::string content(20 << 20, '\0');
    std::FILE* file = std::fopen((m_folder + name).c_str(), "rb");
    if (file == nullptr) return "no file";
    content.resize(std::fread(content.data(), 1, content.size(), file));
    std::fclose(file);
    return content;
  }

  // "LanguageNo" as read from the content; -1 if it cannot be read.
  int LanguageIn(const std::string& content) {
    WriteContent(content);
    const auto root = m_file.Load(m_path);
    if (!root) return -1;
    CSystemLanguage system;
    Configuration configuration;
    configuration.languageNo = 0;
    ReadConfiguration(*root, system, configuration);
    return configuration.languageNo;
  }

  bool Save() { return m_file.Save(m_path, WriteConfiguration(FullConfiguration())); }

  std::string m_folder;
  std::string m_path;
  std::vector<std::string> m_lines;
  CDiagnosticLog m_log{*this};
  CConfigurationFile m_file{m_log};

 private:
  void WriteLine(std::string_view text) noexcept override { m_lines.emplace_back(text); }
};

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i)
    repeated += text;
  return repeated;
}

constexpr char kFrenchSystem[] = "<System><LanguageNo>1</LanguageNo></System>";

TEST_F(CConfigurationFileTest, ReadsBackWhateverItSaves) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    const Configuration saved = RandomConfiguration(seed);
    ASSERT_TRUE(m_file.Save(m_path, WriteConfiguration(saved)));
    const auto root = m_file.Load(m_path);
    ASSERT_TRUE(root) << seed;
    CSystemLanguage system;
    Configuration read;
    ReadConfiguration(*root, system, read);
    EXPECT_EQ(read.histories, saved.histories) << seed;
    EXPECT_EQ(read.callerLists, saved.callerLists) << seed;
    EXPECT_EQ(read.speedDials, saved.speedDials) << seed;
    EXPECT_EQ(read.mainToolBar, saved.mainToolBar) << seed;
  }
}

TEST_F(CConfigurationFileTest, ReadsForeignButSoundFiles) {
  const std::string french = kFrenchSystem;
  const std::string mixed =
      "<Root><!-- c --><?pi?><System a='b'><LanguageNo><!-- 2 --><![CDATA[1]]>2</LanguageNo>"
      "</System></Root>";
  const std::string sound[] = {
      "<Root>" + french + "</Root>",
      "\xef\xbb\xbf<Root>" + french + "</Root>",
      "<?xml version='1.0' encoding='iso-8859-1'?><Root><x>\xe9</x>" + french + "</Root>",
      mixed,
      "<Root>" + Repeat("<a>", 100) + Repeat("</a>", 100) + french + "</Root>",
      "<Root>" + Repeat("<a/>", 30000) + french + "</Root>",
  };
  for (const std::string& content : sound)
    EXPECT_EQ(LanguageIn(content), kFrench) << content;

  std::string wide = "\xff\xfe";
  for (const char character : sound[0])
    wide += {character, '\0'};
  EXPECT_EQ(LanguageIn(wide), kFrench);
}

TEST_F(CConfigurationFileTest, RefusesAndKeepsWhatIsNoConfiguration) {
  const std::string french = kFrenchSystem;
  const std::string hostile[] = {
      "",
      std::string(100, '\0'),
      "no XML at all",
      "<Root>" + french,
      "<Root>" + french + "</Root><Root/>",
      "<?xml version='1.0' encoding='no-such'?><Root>" + french + "</Root>",
      "<Root>\xe9" + french + "</Root>",
      "<Root>\x01" + french + "</Root>",
      "<!DOCTYPE Root><Root>" + french + "</Root>",
      "<!DOCTYPE Root [<!ENTITY e '1'>]><Root><System><LanguageNo>&e;</LanguageNo></System></Root>",
      "<!DOCTYPE Root SYSTEM 'file:///c:/windows/win.ini'><Root>" + french + "</Root>",
      Repeat("<Root>", 20000) + Repeat("</Root>", 20000),
      "<Root>" + french + std::string(17 << 20, ' ') + "</Root>",
  };
  for (const std::string& content : hostile) {
    SCOPED_TRACE(content.substr(0, 80));
    EXPECT_EQ(LanguageIn(content), -1);
    Save();
    EXPECT_THAT(FolderContent(), UnorderedElementsAre("vex_cfg.xml", "vex_cfg.bad.xml"));
    EXPECT_TRUE(Content("vex_cfg.bad.xml") == content);
    EXPECT_TRUE(m_file.Load(m_path));
    DeleteFileA((m_folder + "vex_cfg.bad.xml").c_str());
  }
  EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(CConfigurationFileTest, SetsAsideUnderTheFirstFreeNameAndOnlyOnce) {
  Save();
  Save();
  EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
  for (const char* broken : {"first", "second", "third"}) {
    EXPECT_EQ(LanguageIn(broken), -1);
    Save();
    Save();
  }
  EXPECT_THAT(FolderContent(), UnorderedElementsAre("vex_cfg.xml", "vex_cfg.bad.xml",
                                                    "vex_cfg.bad2.xml", "vex_cfg.bad3.xml"));
  EXPECT_EQ(Content("vex_cfg.bad2.xml"), "second");

  // Broken while Outlook runs, and then repaired.
  WriteContent("fourth");
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  WriteContent("<Root/>");
  EXPECT_TRUE(m_file.LoadIfChanged(m_path));
  WriteContent("fifth");
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  Save();
  EXPECT_EQ(Content("vex_cfg.bad4.xml"), "fifth");
}

TEST_F(CConfigurationFileTest, AFailedSaveLeavesTheOldFile) {
  // Another program holds the file open, so that it can be neither replaced nor renamed.
  for (const std::string old : {"<Root/>", "broken"}) {
    WriteContent(old);
    m_file.Load(m_path);
    const HANDLE holder = CreateFileA(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(Save());
    CloseHandle(holder);
    EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
    EXPECT_EQ(Content("vex_cfg.xml"), old);
  }
  EXPECT_THAT(m_lines, ElementsAre(StartsWith("** Error : Save Data failed. (0x8007"),
                                   StartsWith("** Error : Save Data failed. (0x8007")));
  Save();
  EXPECT_THAT(FolderContent(), UnorderedElementsAre("vex_cfg.xml", "vex_cfg.bad.xml"));
}

TEST_F(CConfigurationFileTest, WhatTheFileHoldsAlreadyIsNotWrittenAgain) {
  Save();
  const HANDLE holder = CreateFileA(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  Save();
  EXPECT_THAT(m_lines, IsEmpty());
  CloseHandle(holder);
  // A change by another program is seen once; the next save replaces it.
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  WriteContent("<Root/>");
  EXPECT_TRUE(m_file.LoadIfChanged(m_path));
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  EXPECT_TRUE(Save());
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  EXPECT_NE(Content("vex_cfg.xml"), "<Root/>");
  DeleteFileA(m_path.c_str());
  Save();
  EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
}

TEST_F(CConfigurationFileTest, WhatACrashLeftBehindDoesNotMatter) {
  WriteContent("half a fi");
  ASSERT_TRUE(MoveFileA(m_path.c_str(), (m_path + ".new").c_str()));
  EXPECT_FALSE(m_file.Load(m_path));
  Save();
  EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
  EXPECT_TRUE(m_file.Load(m_path));
}

TEST_F(CConfigurationFileTest, AMissingFolderIsSaidInTheLog) {
  m_path = m_folder + "missing\\vex_cfg.xml";
  EXPECT_FALSE(m_file.Load(m_path));
  Save();
  EXPECT_THAT(m_lines, ElementsAre("** Error : Save Data failed. (0x80070003)\n"));
}

TEST_F(CConfigurationFileTest, AFailureOfTheDocumentNamesItsInterface) {
  try {
    CXmlWriter().Format({L"", {}, {}});
    FAIL() << "an element without a name was accepted";
  } catch (const _com_error& error) {
    EXPECT_TRUE(FAILED(error.Error()));
    EXPECT_TRUE(error.GUID_() == IID_IXMLDOMDocument);
  }
}

}  // namespace
}  // namespace quor
