#ifndef QUOR_WORKBENCH_RIBBON_DOCUMENT_H
#define QUOR_WORKBENCH_RIBBON_DOCUMENT_H

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quor::workbench {

enum class RibbonWindow { Explorer, Contact };

struct RibbonNode {
  std::string element;  // "comboBox"
  std::string id;       // id, idQ or idMso, whichever exists
  bool custom = false;  // has its own id
  std::map<std::string, std::string, std::less<>> attributes;
  std::vector<RibbonNode> children;

  bool Has(std::string_view attribute) const { return attributes.contains(attribute); }
  // Empty if the attribute is missing: a document has no empty attributes.
  std::string Attribute(std::string_view attribute) const;
};

// Reads a custom-UI document as Office does: one violation invalidates the whole document. Checks
// the schema (customUI.xsd), that no attribute is given both as a value and as a callback, that
// elements with callbacks have an id, and that built-in tabs and groups exist in the window; only
// the home tabs and their first groups are known. Throws CXmlError (office/xml.h).
RibbonNode ReadRibbonDocument(const std::wstring& xml, RibbonWindow window);

}  // namespace quor::workbench

#endif
