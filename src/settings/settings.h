#ifndef QUOR_SETTINGS_SETTINGS_H
#define QUOR_SETTINGS_SETTINGS_H

#include <optional>
#include <string>

#include "module/diagnostic_log.h"
#include "settings/configuration.h"
#include "settings/configuration_document.h"
#include "settings/settings_store.h"

namespace quor {

// The configuration file as a document. The product's reads and writes it through MSXML.
class IConfigurationFile {
 public:
  // Nothing when there is no file, or it cannot be read as a document.
  virtual std::optional<XmlElement> Load(const std::string& path) = 0;
  // Replaces the file as a whole or leaves it alone; logs its own failure.
  virtual void Save(const std::string& path, const XmlElement& root) noexcept = 0;

 protected:
  ~IConfigurationFile() = default;
};

// The settings of a session: the values themselves, where they are kept, and when they may be
// written back.
class CSettings final : public ISettingsStore {
 public:
  // All three must outlive the settings.
  CSettings(IConfigurationFile& file, ISystemLanguage& systemLanguage,
            CDiagnosticLog& log) noexcept;
  CSettings(const CSettings&) = delete;
  CSettings& operator=(const CSettings&) = delete;

  Configuration& Values() noexcept { return m_values; }
  const Configuration& Values() const noexcept { return m_values; }

  // The start-up step: from here on `path` (ANSI code page) is the configuration file, and nothing
  // counts as loaded before. An empty path means that there is no place for a file in this session:
  // the values stay as they are, and nothing is ever written. A file that cannot be read is said in
  // the log and gives the defaults.
  void Start(std::string path);

  // Reads the file again, for a dialog that opens. 0, or -1 when there is no path or the file
  // cannot be read; the values are then as before.
  int Load();

  // Does nothing before Start, or without a path.
  void Save() noexcept override;

  const std::string& Path() const noexcept { return m_path; }

 private:
  void SetDefaults();

  IConfigurationFile& m_file;
  ISystemLanguage& m_systemLanguage;
  CDiagnosticLog& m_log;
  Configuration m_values;
  std::string m_path;
  bool m_loaded = false;  // the load step has run, good or bad; only ever with a path
};

}  // namespace quor

#endif
