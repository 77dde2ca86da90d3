#include "settings/settings.h"

#include <exception>
#include <utility>

namespace quor {

CSettings::CSettings(IConfigurationFile& file, ISystemLanguage& systemLanguage,
                     IListObserver& observer, CDiagnosticLog& log) noexcept
    : m_file(file), m_systemLanguage(systemLanguage), m_observer(observer), m_log(log) {}

void CSettings::Start(std::string path) {
  m_loaded = false;
  m_unsaved = false;
  m_path = std::move(path);
  if (m_path.empty()) return;
  const bool read = LoadFirst();
  m_loaded = true;
  if (!read) {
    m_log.Write("Couldn't load XML file.\n");
    SetDefaults();
  }
  m_known = m_values;
}

bool CSettings::LoadFirst() {
  m_log.Write("Load Data\n");
  const std::optional<XmlElement> root = m_file.Load(m_path);
  if (!root) return false;
  ApplyLog(ReadConfiguration(*root, m_systemLanguage, m_values));
  return true;
}

int CSettings::Load() {
  if (m_path.empty()) return -1;
  m_log.Write("Load Data\n");
  const std::optional<XmlElement> root = m_file.Load(m_path);
  if (!root) return -1;
  const Configuration before = m_values;
  TakeOver(*root, MergeConflict::FileWins);
  if (!HaveSameLists(before, m_values)) m_observer.OnListsChanged();
  return 0;
}

void CSettings::TakeOver(const XmlElement& root, MergeConflict conflict) {
  // Start from m_known: a value missing in the document is unchanged.
  Configuration file = m_known;
  const DocumentFindings findings = ReadConfiguration(root, m_systemLanguage, file);
  MergeFileChanges(m_known, file, conflict, m_values);
  m_known = std::move(file);
  ApplyLog(findings);
}

void CSettings::ApplyLog(const DocumentFindings& findings) noexcept {
  // The file holds the log switch, so its errors can be logged only after it is read.
  m_log.SetEnabled(m_values.debugLog != 0);
  if (findings.illegalLanguage) {
    m_log.Print("** Illegal language number was detected. (%d)\n", *findings.illegalLanguage);
  }
}

void CSettings::Save() noexcept {
  if (!m_loaded) return;
  m_log.Write("Save Data\n");
  m_unsaved = true;
  try {
    SaveDocument();
  } catch (const std::exception&) {
    m_log.Write("** Error : Save Data failed.\n");
  }
}

void CSettings::SaveDocument() {
  const Configuration before = m_values;
  if (const auto edited = m_file.LoadIfChanged(m_path)) {
    TakeOver(*edited, MergeConflict::MemoryWins);
  }
  const XmlElement document = WriteConfiguration(m_values);
  if (m_file.Save(m_path, document)) {
    m_unsaved = false;
    ReadConfiguration(document, m_systemLanguage, m_known);
  }
  if (!HaveSameLists(before, m_values)) m_observer.OnListsChanged();
}

void CSettings::SetDefaults() {
  m_values.aCheckInterval = 1;
  m_values.callerInfo = 1;
  m_values.popUpModes.fill(kPopUpContactForm);
  m_values.languageNo = m_systemLanguage.LanguageNumber();
}

}  // namespace quor
