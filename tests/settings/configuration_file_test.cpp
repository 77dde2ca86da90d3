#include "settings/configuration_file.h"

#include <gmock/gmock.h>
#include <msxml2.h>

#include <filesystem>
#include <fstream>

#include "com/com_pointers.h"
#include "settings/msxml_document.h"
#include "settings/system_language.h"
#include "tests/settings/configuration_samples.h"
#include "text/ansi.h"

namespace quor {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

// A temporary folder with a configuration file.
class CConfigurationFileTest : public testing::Test, protected ILogWriter {
 protected:
  CConfigurationFileTest() {
    CoInitialize(nullptr);
    fs::create_directory(m_folder);
    m_log.SetEnabled(true);
  }
  ~CConfigurationFileTest() override {
    fs::remove_all(m_folder);
    CoUninitialize();
  }

  std::vector<std::string> FolderContent() const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_folder))
      names.push_back(entry.path().filename().string());
    return names;
  }
  void WriteContent(const std::string& content, const char* name = "vex_cfg.xml") const {
    std::ofstream(m_folder / name, std::ios::binary) << content;
  }
  std::string Content(const char* name) const {
    std::ifstream file(m_folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // While it is open, another program holds the file, so that it can be neither replaced nor
  // renamed.
  HANDLE HoldFile() const {
    return CreateFileA(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                       nullptr);
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

  bool Save() { return m_file.Save(m_path, WriteConfiguration(RandomConfiguration(1))); }

  // A URL would decode this name differently.
  const fs::path m_folder = fs::temp_directory_path() / L"quor %41 \xe9";
  std::string m_path = AnsiFromWide((m_folder / L"vex_cfg.xml").wstring());
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
    ASSERT_TRUE(m_file.Save(m_path, WriteConfiguration(RandomConfiguration(seed))));
    const std::string saved = Content("vex_cfg.xml");
    const auto root = m_file.Load(m_path);
    ASSERT_TRUE(root) << seed;
    CSystemLanguage system;
    Configuration read;
    ReadConfiguration(*root, system, read);
    ASSERT_TRUE(m_file.Save(m_path, WriteConfiguration(read)));
    EXPECT_TRUE(Content("vex_cfg.xml") == saved) << seed;
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
    fs::remove(m_folder / "vex_cfg.bad.xml");
  }
  EXPECT_THAT(m_lines, IsEmpty());
}

TEST_F(CConfigurationFileTest, SetsAsideUnderTheFirstFreeNameAndOnlyOnce) {
  for (const char* broken : {"first", "second"}) {
    EXPECT_EQ(LanguageIn(broken), -1);
    Save();
    Save();
  }
  EXPECT_THAT(FolderContent(),
              UnorderedElementsAre("vex_cfg.xml", "vex_cfg.bad.xml", "vex_cfg.bad2.xml"));
  EXPECT_EQ(Content("vex_cfg.bad2.xml"), "second");

  // Broken while Outlook runs, and then repaired.
  WriteContent("third");
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  WriteContent("<Root/>");
  EXPECT_TRUE(m_file.LoadIfChanged(m_path));
  WriteContent("fourth");
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  Save();
  EXPECT_EQ(Content("vex_cfg.bad3.xml"), "fourth");
}

TEST_F(CConfigurationFileTest, AFailedSaveLeavesTheOldFile) {
  for (const std::string old : {"<Root/>", "broken"}) {
    WriteContent(old);
    m_file.Load(m_path);
    const HANDLE holder = HoldFile();
    EXPECT_FALSE(Save());
    CloseHandle(holder);
    EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
    EXPECT_EQ(Content("vex_cfg.xml"), old);
    EXPECT_THAT(std::exchange(m_lines, {}),
                ElementsAre(StartsWith("** Error : Save Data failed. (0x8007")));
  }
  Save();
  EXPECT_THAT(FolderContent(), UnorderedElementsAre("vex_cfg.xml", "vex_cfg.bad.xml"));
}

TEST_F(CConfigurationFileTest, WhatTheFileHoldsAlreadyIsNotWrittenAgain) {
  Save();
  const HANDLE holder = HoldFile();
  EXPECT_TRUE(Save());
  CloseHandle(holder);
  // A change by another program is seen once; the next save replaces it.
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  WriteContent("<Root/>");
  EXPECT_TRUE(m_file.LoadIfChanged(m_path));
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  EXPECT_TRUE(Save());
  EXPECT_FALSE(m_file.LoadIfChanged(m_path));
  EXPECT_NE(Content("vex_cfg.xml"), "<Root/>");
  fs::remove(m_folder / "vex_cfg.xml");
  Save();
  EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
}

TEST_F(CConfigurationFileTest, WhatACrashLeftBehindDoesNotMatter) {
  WriteContent("half a fi", "vex_cfg.xml.new");
  EXPECT_FALSE(m_file.Load(m_path));
  Save();
  EXPECT_THAT(FolderContent(), ElementsAre("vex_cfg.xml"));
  EXPECT_TRUE(m_file.Load(m_path));
}

TEST_F(CConfigurationFileTest, AMissingFolderIsSaidInTheLog) {
  fs::remove_all(m_folder);
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
