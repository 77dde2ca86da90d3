#include "settings/settings.h"

#include <gmock/gmock.h>

namespace quor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A log that keeps its lines, a file in memory and a French Windows.
class CSettingsTest : public testing::Test,
                      private ILogWriter,
                      private IConfigurationFile,
                      private ISystemLanguage {
 protected:
  void FileHolds(const Configuration& configuration) { m_file = WriteConfiguration(configuration); }

  std::optional<XmlElement> m_file;
  std::vector<std::string> m_saved;
  std::vector<std::string> m_lines;
  CDiagnosticLog m_log{*this};
  CSettings m_settings{*this, *this, m_log};

 private:
  void WriteLine(std::string_view text) noexcept override { m_lines.emplace_back(text); }
  std::optional<XmlElement> Load(const std::string&) override { return m_file; }
  void Save(const std::string& path, const XmlElement& root) noexcept override {
    m_saved.push_back(path);
    m_file = root;
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
