#include "workbench/host/evidence_stage.h"

// clang-format off
#include <windows.h>
// clang-format on

#include <cstring>

#include "workbench/office/value.h"
#include "workbench/office/xml.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr std::string_view kLogPrefix = "Temp\\catlog";

HKEY RootFromName(const std::string& key, size_t& rest) {
  const struct {
    std::string_view prefix;
    HKEY root;
  } roots[] = {
      {"HKLM\\", HKEY_LOCAL_MACHINE}, {"HKCU\\", HKEY_CURRENT_USER}, {"HKCR\\", HKEY_CLASSES_ROOT}};
  for (const auto& [prefix, root] : roots) {
    if (!key.starts_with(prefix)) continue;
    rest = prefix.size();
    return root;
  }
  throw CScenarioError("\"" + key + R"(" does not begin with HKLM\, HKCU\ or HKCR\)");
}

}  // namespace

// There is one file per day; after a run across midnight, both are read in order.
std::optional<std::string> CEvidenceStage::ReadLog() {
  std::optional<std::string> log;
  for (const std::string& path : m_data.List()) {
    if (!path.starts_with(kLogPrefix)) continue;
    log = log.value_or("") + m_data.Read(path).value_or("");
  }
  return log;
}

std::optional<std::string> CEvidenceStage::LastOpened() {
  const std::string folder = Utf8FromWide(m_data.Folder());
  const std::string& opened = m_host.LastOpened();
  if (opened.empty() || !opened.starts_with(folder)) return std::nullopt;
  return opened == folder ? "." : opened.substr(folder.size() + 1);
}

std::vector<std::string> CEvidenceStage::ReadXml(const std::string& path,
                                                 const std::string& xpath) {
  IXMLDOMDocument2Ptr document;
  try {
    document = LoadXml(m_data.FullPath(path));
  } catch (const CXmlError& error) {
    throw CExpectationFailure(error.what());
  }
  IXMLDOMNodeListPtr nodes;
  if (document->selectNodes(_bstr_t(WideFromUtf8(xpath).c_str()), &nodes) != S_OK) {
    throw CScenarioError("not an XPath: " + xpath);
  }
  std::vector<std::string> texts;
  IXMLDOMNodePtr node;
  while (nodes->nextNode(&node) == S_OK)
    texts.push_back(XmlText(*node));
  return texts;
}

void CEvidenceStage::WatchXml(const std::string& path) {
  m_watch = std::make_unique<CFileWatch>(m_data.FullPath(path));
}

uint64_t CEvidenceStage::EndWatch() {
  if (!m_watch) throw CScenarioError("no file is watched");
  const std::unique_ptr<CFileWatch> watch = std::move(m_watch);
  watch->End();
  if (!watch->FirstFault().empty()) throw CExpectationFailure(watch->FirstFault());
  return watch->Readings();
}

std::optional<std::string> CEvidenceStage::ReadRegistry(const std::string& key,
                                                        const std::string& name) {
  size_t rest = 0;
  const HKEY root = RootFromName(key, rest);
  const std::wstring path = WideFromUtf8(key.substr(rest));
  const std::wstring valueName = WideFromUtf8(name);
  DWORD type = 0;
  wchar_t text[1024] = {};
  DWORD size = sizeof(text);
  const LSTATUS status =
      RegGetValueW(root, path.c_str(), valueName.empty() ? nullptr : valueName.c_str(),
                   RRF_RT_REG_SZ | RRF_RT_REG_DWORD, &type, text, &size);
  if (status != ERROR_SUCCESS) return std::nullopt;
  if (type == REG_DWORD) {
    DWORD number = 0;
    std::memcpy(&number, text, sizeof(number));
    return std::to_string(number);
  }
  return Utf8FromWide(text);
}

}  // namespace quor::workbench
