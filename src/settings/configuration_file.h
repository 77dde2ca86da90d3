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

// The configuration file on disk, as an MSXML document.
//
// Whatever moment the process dies at, the file is either the old one or the new one, whole: a save
// writes beside it, flushes, and puts the new file in its place. A file that could not be read is
// first given another name ("vex_cfg.bad.xml", numbered when that is taken) and so kept. What the
// file holds already is not written again: Outlook's end saves more than once, and writing through
// to the disk is the slowest part of it.
class CConfigurationFile final : public IConfigurationFile {
 public:
  // The log must outlive the file.
  explicit CConfigurationFile(CDiagnosticLog& log) noexcept : m_log(log) {}

  // Whether the file is there but was no document when it was last read.
  bool IsUnreadable() const noexcept { return m_unreadable; }

  std::optional<XmlElement> Load(const std::string& path) override;
  std::optional<XmlElement> LoadIfChanged(const std::string& path) override;
  bool Save(const std::string& path, const XmlElement& root) noexcept override;

 private:
  struct Content {
    bool isThere = false;
    std::optional<std::vector<std::byte>> bytes;  // nothing: it cannot be read
  };
  static Content ReadContent(const std::string& path);
  std::optional<XmlElement> Parse(Content content);
  void Replace(const std::string& path, std::span<const std::byte> bytes);

  CDiagnosticLog& m_log;
  CXmlWriter m_writer;
  std::optional<std::vector<std::byte>> m_seen;  // the content as last read or written
  bool m_unreadable = false;                     // the file is there, but its last load failed
};

}  // namespace quor

#endif
