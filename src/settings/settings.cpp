#include "settings/settings.h"

#include <exception>
#include <utility>

namespace quor {

CSettings::CSettings(IConfigurationFile& file, ISystemLanguage& systemLanguage,
                     CDiagnosticLog& log) noexcept
    : m_file(file), m_systemLanguage(systemLanguage), m_log(log) {}

void CSettings::Start(std::string path) {
  m_loaded = false;
  m_path = std::move(path);
  if (m_path.empty()) return;
  const bool failed = Load() != 0;
  m_loaded = true;
  if (!failed) return;
  m_log.Write("Couldn't load XML file.\n");
  SetDefaults();
}

int CSettings::Load() {
  if (m_path.empty()) return -1;
  m_log.Write("Load Data\n");
  const std::optional<XmlElement> root = m_file.Load(m_path);
  if (!root) return -1;
  const DocumentFindings findings = ReadConfiguration(*root, m_systemLanguage, m_values);
  // The file itself says whether there is a log, so what it holds amiss can only be said now.
  m_log.SetEnabled(m_values.debugLog != 0);
  if (findings.illegalLanguage) {
    m_log.Print("** Illegal language number was detected. (%d)\n", *findings.illegalLanguage);
  }
  return 0;
}

void CSettings::Save() noexcept {
  if (!m_loaded) return;
  m_log.Write("Save Data\n");
  try {
    m_file.Save(m_path, WriteConfiguration(m_values));
  } catch (const std::exception&) {
    m_log.Write("** Error : Save Data failed.\n");
  }
}

void CSettings::SetDefaults() {
  m_values.aCheckInterval = 1;
  m_values.callerInfo = 1;
  m_values.popUpModes.fill(kPopUpContactForm);
  m_values.languageNo = m_systemLanguage.LanguageNumber();
}

}  // namespace quor
