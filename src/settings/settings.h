#ifndef QUOR_SETTINGS_SETTINGS_H
#define QUOR_SETTINGS_SETTINGS_H

#include <optional>
#include <string>

#include "module/diagnostic_log.h"
#include "settings/configuration.h"
#include "settings/configuration_document.h"
#include "settings/configuration_merge.h"
#include "settings/settings_store.h"

namespace quor {

// The configuration file as a document. The product's reads and writes it through MSXML.
class IConfigurationFile {
 public:
  // Nothing when there is no file, or it cannot be read as a document.
  virtual std::optional<XmlElement> Load(const std::string& path) = 0;
  // The same, but nothing as well when the file is as it was last read or written here.
  virtual std::optional<XmlElement> LoadIfChanged(const std::string& path) = 0;
  // Replaces the file as a whole or leaves it alone; logs its own failure. A file that could not be
  // read is kept beside the new one. True when the file holds the document now.
  virtual bool Save(const std::string& path, const XmlElement& root) noexcept = 0;

 protected:
  ~IConfigurationFile() = default;
};

// Told that lists of the configuration have changed because somebody has edited the file.
class IListObserver {
 public:
  virtual void OnListsChanged() noexcept = 0;

 protected:
  ~IListObserver() = default;
};

// The settings of a session: the values themselves, where they are kept, and when they may be
// written back.
//
// The user may edit the file while Outlook runs. What he changed is taken over when a dialog opens
// and before the file is written, so nothing is lost: neither his changes nor what memory holds
// because a save failed.
class CSettings final : public ISettingsStore {
 public:
  // All must outlive the settings.
  CSettings(IConfigurationFile& file, ISystemLanguage& systemLanguage, IListObserver& observer,
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

  // Reads the file again, for a dialog that opens. What the file holds that it did not hold when it
  // was last read or written becomes the value, except for lists that are not saved yet; switches
  // the log. 0, or -1 when there is no path or the file cannot be read; the values are then as
  // before. May call the observer.
  int Load();

  // Does nothing before Start, or without a path. Where the file has been edited meanwhile, only
  // what memory has changed itself is written over it. May call the observer.
  void Save() noexcept override;

  // Whether the last save did not reach the file.
  bool HasUnsavedValues() const noexcept { return m_unsaved; }

  const std::string& Path() const noexcept { return m_path; }

 private:
  bool LoadFirst();
  void TakeOver(const XmlElement& root, MergeConflict conflict);
  void ApplyLog(const DocumentFindings& findings) noexcept;
  void SaveDocument();
  void SetDefaults();

  IConfigurationFile& m_file;
  ISystemLanguage& m_systemLanguage;
  IListObserver& m_observer;
  CDiagnosticLog& m_log;
  Configuration m_values;
  Configuration m_known;  // what the file held when it was last read or written
  std::string m_path;
  bool m_unsaved = false;
  bool m_loaded = false;  // the load step has run, good or bad; only ever with a path
};

}  // namespace quor

#endif
