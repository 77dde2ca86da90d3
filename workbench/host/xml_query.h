#ifndef QUOR_WORKBENCH_HOST_XML_QUERY_H
#define QUOR_WORKBENCH_HOST_XML_QUERY_H

#include <string>
#include <vector>

namespace quor::workbench {

// Texts of the nodes at an XPath, in document order. Throws CExpectationFailure if the file is
// missing or not well-formed, CScenarioError for an invalid XPath.
std::vector<std::string> QueryXmlFile(const std::wstring& path, const std::string& xpath);

}  // namespace quor::workbench

#endif
