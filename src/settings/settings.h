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

// The configuration file as a document. The product uses MSXML to read and write it.
class IConfigurationFile {
 public:
  // Returns nothing if there is no file, or if it cannot be read as a document.
  virtual std::optional<XmlElement> Load(const std::string& path) = 0;
  // The same, but also returns nothing if the file is unchanged since it was last read or written
  // here.
  virtual std::optional<XmlElement> LoadIfChanged(const std::string& path) = 0;
  // Replaces the whole file or leaves it unchanged; logs its own failure. Keeps an unreadable file
  // beside the new one. True if the file now holds the document.
  virtual bool Save(const std::string& path, const XmlElement& root) noexcept = 0;

 protected:
  ~IConfigurationFile() = default;
};

// Called when lists of the configuration have changed because the user edited the file.
class IListObserver {
 public:
  virtual void OnListsChanged() noexcept = 0;

 protected:
  ~IListObserver() = default;
};

// The settings of a session: their values, their file, and when they may be saved.
//
// The user may edit the file while Outlook runs. His changes are read when a dialog opens and
// before the file is written, so neither they nor unsaved values in memory are lost.
class CSettings final : public ISettingsStore {
 public:
  // All must outlive this object.
  CSettings(IConfigurationFile& file, ISystemLanguage& systemLanguage, IListObserver& observer,
            CDiagnosticLog& log) noexcept;
  CSettings(const CSettings&) = delete;
  CSettings& operator=(const CSettings&) = delete;

  Configuration& Values() noexcept { return m_values; }
  const Configuration& Values() const noexcept { return m_values; }

  // Start-up: `path` (ANSI code page) is the configuration file from now on, and nothing counts as
  // loaded yet. An empty path means that this session has no place for a file: the values keep
  // their defaults and are never written. An unreadable file is logged and gives the defaults.
  void Start(std::string path);

  // Reads the file again when a dialog opens. What changed in the file since it was last read or
  // written replaces the value in memory, except for lists with unsaved changes; the log is
  // switched accordingly. Returns 0, or -1 if there is no path or the file cannot be read; the
  // values are then unchanged. May call the observer.
  int Load();

  // Does nothing before Start, or without a path. If the user has edited the file meanwhile, writes
  // only the values changed in memory over it. May call the observer.
  void Save() noexcept override;

  // Whether the last save failed to reach the file.
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
  Configuration m_known;  // the file's content when it was last read or written
  std::string m_path;
  bool m_unsaved = false;
  bool m_loaded = false;  // the load step has run, successfully or not; only with a path
};

}  // namespace quor

#endif
