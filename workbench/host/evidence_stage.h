#ifndef QUOR_WORKBENCH_HOST_EVIDENCE_STAGE_H
#define QUOR_WORKBENCH_HOST_EVIDENCE_STAGE_H

#include <memory>

#include "workbench/host/addin_host.h"
#include "workbench/host/application_data.h"
#include "workbench/host/file_watch.h"
#include "workbench/scenario/stage.h"

namespace quor::workbench {

// The files of the run, its diagnostic log, XML files and the registry.
class CEvidenceStage final : public IEvidenceStage {
 public:
  CEvidenceStage(CApplicationData& data, const CAddInHost& host) : m_data(data), m_host(host) {}

  void WriteFile(const std::string& path, const std::string& content) override {
    m_data.Write(path, content);
  }
  void CopyIn(const std::string& from, const std::string& path) override {
    m_data.CopyIn(from, path);
  }
  void MakeFolder(const std::string& path) override { m_data.MakeFolder(path); }
  void RemoveApplicationData() override { m_data.PointNowhere(); }
  std::optional<std::string> ReadFile(const std::string& path) override {
    return m_data.Read(path);
  }
  std::vector<std::string> ListFiles() override { return m_data.List(); }
  std::optional<std::string> ReadLog() override;
  std::optional<std::string> LastOpened() override;
  std::vector<std::string> ReadXml(const std::string& path, const std::string& xpath) override;
  void WatchXml(const std::string& path) override;
  uint64_t EndWatch() override;
  std::optional<std::string> ReadRegistry(const std::string& key, const std::string& name) override;

 private:
  CApplicationData& m_data;
  const CAddInHost& m_host;
  std::unique_ptr<CFileWatch> m_watch;
};

}  // namespace quor::workbench

#endif
