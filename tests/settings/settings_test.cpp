#include "settings/settings.h"

#include <gmock/gmock.h>

#include "tests/settings/configuration_samples.h"

namespace quor {
namespace {

using testing::ElementsAre;

// A collected log, a file in memory and a French Windows.
class CSettingsTest : public testing::Test,
                      private ILogWriter,
                      private IConfigurationFile,
                      private IListObserver,
                      private ISystemLanguage {
 protected:
  void FileHolds(const Configuration& configuration) { m_file = WriteConfiguration(configuration); }
  void StartWithAFile() {
    Configuration stored;
    stored.debugLog = 1;
    stored.popUpModes = {0, 1, 2, 2, 1, 0};
    stored.histories = stored.callerLists = {SampleCall(1), SampleCall(2)};
    stored.speedDials = {{L"Fire", L"112"}, {}};
    FileHolds(stored);
    m_settings.Start("vex_cfg.xml");
  }

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
  bool Save(const std::string&, const XmlElement& root) noexcept override {
    if (m_savesFail) return false;
    m_file = root;
    m_edited = false;
    return true;
  }
  int32_t LanguageNumber() override { return kFrench; }
};

TEST_F(CSettingsTest, AnUnreadableFileGivesTheDefaultsAndIsReplaced) {
  m_log.SetEnabled(true);
  m_settings.Values().callerInfo = 0;
  m_settings.Values().popUpModes.fill(0);
  m_settings.Values().histories.resize(1);
  m_settings.Save();  // nothing is loaded yet
  m_settings.Start("");
  m_settings.Save();
  EXPECT_EQ(m_settings.Load(), -1);
  m_settings.Start("vex_cfg.xml");
  m_settings.Save();
  EXPECT_THAT(m_lines, ElementsAre("Load Data\n", "Couldn't load XML file.\n", "Save Data\n"));
  EXPECT_EQ(InFile().aCheckInterval, 1);
  EXPECT_EQ(InFile().callerInfo, 1);
  EXPECT_THAT(InFile().popUpModes, testing::Each(1));
  EXPECT_EQ(InFile().languageNo, kFrench);
  EXPECT_EQ(InFile().histories.size(), 1u);
}

TEST_F(CSettingsTest, ADialogSeesWhatWasEditedByHand) {
  StartWithAFile();
  Configuration& values = m_settings.Values();
  values.histories.insert(values.histories.begin(), SampleCall(50));
  values.popUpModes[0] = 2;
  values.delayBtnEvent = 100;
  m_savesFail = true;
  m_settings.Save();
  EditByHand([](Configuration& file) {
    file.popUpModes[1] = 2;
    file.delayBtnEvent = 200;
    file.debugLog = 0;
    file.histories.clear();
    file.speedDials[0].number = L"110";
    file.mainToolBar.left = 77;
  });
  EXPECT_EQ(m_settings.Load(), 0);
  EXPECT_EQ(values.popUpModes, (std::array<int32_t, kPopUpSlots>{2, 2, 2, 2, 1, 0}));
  EXPECT_EQ(values.delayBtnEvent, 200) << "changed in both: the file's value is used";
  EXPECT_FALSE(m_log.IsEnabled());
  EXPECT_EQ(values.histories.size(), 3u) << "not saved yet";
  EXPECT_EQ(values.speedDials[0].number, L"110");
  EXPECT_EQ(values.mainToolBar.left, 77);
  EXPECT_EQ(m_listChanges, 1);

  values.popUpModes[1] = 1;
  m_settings.Load();
  EXPECT_EQ(values.popUpModes[1], 1) << "the file has not changed since";

  // A value missing in the file is unchanged, as are all if it becomes unreadable.
  for (const std::optional<XmlElement>& file : {std::optional(XmlElement{L"Root", {}, {}}), {}}) {
    m_file = file;
    EXPECT_EQ(m_settings.Load(), file ? 0 : -1);
    EXPECT_EQ(values.popUpModes[0], 2) << "still not saved";
    EXPECT_EQ(values.delayBtnEvent, 200);
    EXPECT_EQ(values.speedDials.size(), 2u);
    EXPECT_EQ(m_listChanges, 1);
  }
}

TEST_F(CSettingsTest, ASaveKeepsWhatWasEditedByHand) {
  StartWithAFile();
  Configuration& values = m_settings.Values();
  EditByHand([](Configuration& file) {
    file.popUpModes[1] = 2;
    file.popUpModes[2] = 0;
    file.speedDials[0].number = L"110";
    file.callerLists.clear();
  });
  values.callerLists.front() = SampleCall(60);
  values.popUpModes[2] = 1;
  m_settings.Save();
  EXPECT_EQ(InFile().popUpModes, (std::array<int32_t, kPopUpSlots>{0, 2, 1, 2, 1, 0}));
  EXPECT_EQ(InFile().callerLists.front(), SampleCall(60));
  EXPECT_EQ(InFile().speedDials[0].number, L"110");
  EXPECT_EQ(values.speedDials, InFile().speedDials);
  EXPECT_EQ(m_listChanges, 1);

  // What was written is known from here on: a later change in memory is the newer one.
  values.popUpModes[2] = 0;
  m_settings.Load();
  EXPECT_EQ(values.popUpModes[2], 0);
}

}  // namespace
}  // namespace quor
