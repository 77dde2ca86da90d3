#include "settings/settings.h"

#include <gmock/gmock.h>

#include "tests/settings/configuration_samples.h"

namespace quor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A collected log, a file in memory and a French Windows.
class CSettingsTest : public testing::Test,
                      private ILogWriter,
                      private IConfigurationFile,
                      private IListObserver,
                      private ISystemLanguage {
 protected:
  void FileHolds(const Configuration& configuration) { m_file = WriteConfiguration(configuration); }

  // The user edits the file: applies a change to its content.
  template <typename Change>
  void EditByHand(Change change) {
    Configuration edited;
    ReadConfiguration(*m_file, *this, edited);
    change(edited);
    FileHolds(edited);
    m_edited = true;
  }
  Configuration InFile() {
    Configuration read;
    ReadConfiguration(*m_file, *this, read);
    return read;
  }

  std::optional<XmlElement> m_file;
  bool m_edited = false;  // since the last load or save
  bool m_savesFail = false;
  int m_listChanges = 0;
  std::vector<std::string> m_saved;
  std::vector<std::string> m_lines;
  CDiagnosticLog m_log{*this};
  CSettings m_settings{*this, *this, *this, m_log};

 private:
  void WriteLine(std::string_view text) noexcept override { m_lines.emplace_back(text); }
  void OnListsChanged() noexcept override { ++m_listChanges; }
  std::optional<XmlElement> Load(const std::string&) override {
    m_edited = false;
    return m_file;
  }
  std::optional<XmlElement> LoadIfChanged(const std::string& path) override {
    return m_edited ? Load(path) : std::nullopt;
  }
  bool Save(const std::string& path, const XmlElement& root) noexcept override {
    if (m_savesFail) return false;
    m_saved.push_back(path);
    m_file = root;
    m_edited = false;
    return true;
  }
  int32_t LanguageNumber() override { return kFrench; }
};

TEST_F(CSettingsTest, TheFileOpensTheLogForWhatItHoldsAmiss) {
  Configuration stored;
  stored.debugLog = 1;
  stored.languageNo = 3;
  FileHolds(stored);
  m_settings.Start("vex_cfg.xml");
  EXPECT_THAT(m_lines, ElementsAre("** Illegal language number was detected. (3)\n"));
  EXPECT_EQ(m_settings.Values().languageNo, kEnglish);

  m_lines.clear();
  stored.debugLog = 0;
  FileHolds(stored);
  EXPECT_EQ(m_settings.Load(), 0);
  EXPECT_THAT(m_lines, ElementsAre("Load Data\n"));
  EXPECT_FALSE(m_log.IsEnabled());
}

TEST_F(CSettingsTest, AnUnreadableFileGivesTheDefaults) {
  m_log.SetEnabled(true);
  m_settings.Values().callerInfo = 0;
  m_settings.Values().popUpModes.fill(0);
  m_settings.Values().histories.resize(1);
  m_settings.Start("vex_cfg.xml");
  EXPECT_THAT(m_lines, ElementsAre("Load Data\n", "Couldn't load XML file.\n"));
  EXPECT_EQ(m_settings.Values().aCheckInterval, 1);
  EXPECT_EQ(m_settings.Values().callerInfo, 1);
  EXPECT_THAT(m_settings.Values().popUpModes, testing::Each(1));
  EXPECT_EQ(m_settings.Values().languageNo, kFrench);
  EXPECT_EQ(m_settings.Values().histories.size(), 1u);
}

TEST_F(CSettingsTest, ALaterFailedLoadChangesNothing) {
  m_settings.Start("vex_cfg.xml");
  m_settings.Values().languageNo = kSpanish;
  EXPECT_EQ(m_settings.Load(), -1);
  EXPECT_EQ(m_settings.Values().languageNo, kSpanish);
}

TEST_F(CSettingsTest, ADialogSeesWhatWasEditedByHand) {
  FileHolds(FullConfiguration());
  m_settings.Start("vex_cfg.xml");
  Configuration& values = m_settings.Values();
  values.histories.insert(values.histories.begin(), SampleCall(50));
  values.popUpModes[0] = 2;
  m_savesFail = true;
  m_settings.Save();

  EditByHand([](Configuration& file) {
    file.popUpModes[1] = 2;
    file.languageNo = kFrench;
    file.debugLog = 0;
    file.recordCalls = 1;
    file.histories.clear();
    file.speedDials[0].number = L"112";
    file.mainToolBar.left = 77;
  });
  EXPECT_EQ(m_settings.Load(), 0);
  EXPECT_EQ(values.popUpModes, (std::array<int32_t, kPopUpSlots>{2, 2, 2, 2, 1, 0}));
  EXPECT_EQ(values.languageNo, kFrench);
  EXPECT_FALSE(m_log.IsEnabled());
  EXPECT_EQ(values.recordCalls, 1);
  EXPECT_EQ(values.histories.front(), SampleCall(50)) << "not saved yet";
  EXPECT_EQ(values.histories.size(), 21u);
  EXPECT_EQ(values.speedDials[0].number, L"112");
  EXPECT_EQ(values.mainToolBar.left, 77);
  EXPECT_EQ(m_listChanges, 1);

  // The same value changed in both: the file's value is used.
  values.delayBtnEvent = 100;
  EditByHand([](Configuration& file) { file.delayBtnEvent = 200; });
  m_settings.Load();
  EXPECT_EQ(values.delayBtnEvent, 200);
  EXPECT_EQ(values.popUpModes[0], 2) << "still not saved";
  EXPECT_EQ(m_listChanges, 1);

  // A value missing in the file is unchanged.
  m_file = XmlElement{L"Root", {}, {}};
  m_settings.Load();
  EXPECT_EQ(values.delayBtnEvent, 200);
  EXPECT_EQ(values.speedDials.size(), 10u);
}

TEST_F(CSettingsTest, ASaveKeepsWhatWasEditedByHand) {
  FileHolds(FullConfiguration());
  m_settings.Start("vex_cfg.xml");
  Configuration& values = m_settings.Values();
  EditByHand([](Configuration& file) {
    file.popUpModes[1] = 2;
    file.popUpModes[2] = 0;
    file.recordCalls = 1;
    file.speedDials[0].number = L"112";
    file.callerLists.clear();
  });
  values.callerLists.front() = SampleCall(60);
  values.popUpModes[2] = 1;
  m_settings.Save();
  EXPECT_EQ(InFile().popUpModes, (std::array<int32_t, kPopUpSlots>{0, 2, 1, 2, 1, 0}));
  EXPECT_EQ(InFile().recordCalls, 1);
  EXPECT_EQ(InFile().speedDials[0].number, L"112");
  EXPECT_EQ(InFile().callerLists.front(), SampleCall(60));
  EXPECT_EQ(values.speedDials, InFile().speedDials);
  EXPECT_EQ(m_listChanges, 1);

  // The file's entry is known from here on: memory's later changes are written.
  values.speedDials[0].number = L"110";
  m_settings.Save();
  EXPECT_EQ(InFile().speedDials[0].number, L"110");
  EXPECT_EQ(m_listChanges, 1);
}

TEST_F(CSettingsTest, SavesOnlyAfterTheLoadStepAndWithAPath) {
  m_log.SetEnabled(true);
  m_settings.Save();
  m_settings.Start("");
  m_settings.Save();
  EXPECT_EQ(m_settings.Load(), -1);
  EXPECT_THAT(m_lines, IsEmpty());

  m_settings.Start("good");
  m_settings.Save();
  EXPECT_THAT(m_lines, ElementsAre("Load Data\n", "Couldn't load XML file.\n", "Save Data\n"));
  m_settings.Start("");
  m_settings.Save();
  EXPECT_THAT(m_saved, ElementsAre("good"));
}

}  // namespace
}  // namespace quor
