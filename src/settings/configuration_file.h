#ifndef QUOR_SETTINGS_CONFIGURATION_FILE_H
#define QUOR_SETTINGS_CONFIGURATION_FILE_H

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "settings/msxml_document.h"
#include "settings/settings.h"

namespace quor {

// The configuration file on disk, read and written through MSXML.
//
// If the process dies at any moment, the file is either the old or the new one, complete: a save
// writes a second file, flushes it and replaces the first. An unreadable file is renamed first
// ("vex_cfg.bad.xml", or a numbered name if that exists) and so kept. Unchanged content is not
// written again: Outlook's shutdown saves more than once, and writing through to the disk is the
// slow part.
class CConfigurationFile final : public IConfigurationFile {
 public:
  // The log must outlive the file.
  explicit CConfigurationFile(CDiagnosticLog& log) noexcept : m_log(log) {}

  // Whether the file exists but could not be read as a document the last time.
  bool IsUnreadable() const noexcept { return m_unreadable; }

  std::optional<XmlElement> Load(const std::string& path) override;
  std::optional<XmlElement> LoadIfChanged(const std::string& path) override;
  bool Save(const std::string& path, const XmlElement& root) noexcept override;

 private:
  struct Content {
    bool isThere = false;
    std::optional<std::vector<std::byte>> bytes;  // nothing: the file cannot be read
  };
  static Content ReadContent(const std::string& path);
  std::optional<XmlElement> Parse(Content content);
  void Replace(const std::string& path, std::span<const std::byte> bytes);

  CDiagnosticLog& m_log;
  CXmlWriter m_writer;
  std::optional<std::vector<std::byte>> m_seen;  // the content as last read or written
  bool m_unreadable = false;                     // the file exists, but the last load failed
};

}  // namespace quor

#endif
