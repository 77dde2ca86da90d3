#ifndef QUOR_WORKBENCH_HOST_EVIDENCE_STAGE_H
#define QUOR_WORKBENCH_HOST_EVIDENCE_STAGE_H

#include <memory>

#include "workbench/host/addin_host.h"
#include "workbench/host/application_data.h"
#include "workbench/host/file_watch.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// What a run leaves behind: its diagnostic log, XML files and the registry.
class CEvidenceStage final {
 public:
  CEvidenceStage(CApplicationData& data, const CAddInHost& host) : m_data(data), m_host(host) {}

  // Today's diagnostic log; nothing if there is none.
  std::optional<std::string> ReadLog();
  // What the add-in last made Windows open for the user: "." for the folder itself, nothing if it
  // has opened nothing.
  std::optional<std::string> LastOpened();
  // Texts of the nodes at an XPath in an XML file. Throws CExpectationFailure if it is not
  // well-formed.
  std::vector<std::string> ReadXml(const std::string& path, const std::string& xpath);
  // From now on another thread reads the XML file again and again.
  void WatchXml(const std::string& path);
  // Ends this; returns the number of readings. Throws CExpectationFailure if the file was ever
  // incomplete.
  uint64_t EndWatch();
  // The value as text, REG_DWORD in decimal; nothing if the key or value is missing. `key` begins
  // with "HKLM\\", "HKCU\\" or "HKCR\\"; an empty name is the default value.
  std::optional<std::string> ReadRegistry(const std::string& key, const std::string& name);

 private:
  CApplicationData& m_data;
  const CAddInHost& m_host;
  std::unique_ptr<CFileWatch> m_watch;
};

}  // namespace quor::workbench

#endif
