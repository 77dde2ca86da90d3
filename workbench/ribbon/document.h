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
  std::string id;       // id, idQ or idMso, whichever is there
  bool custom = false;  // has an id of its own
  std::map<std::string, std::string, std::less<>> attributes;
  std::vector<RibbonNode> children;

  bool Has(std::string_view attribute) const { return attributes.contains(attribute); }
  // Empty where the attribute is missing: none may be empty in a document.
  std::string Attribute(std::string_view attribute) const;
};

// Reads a custom-UI document the way Office does: one violation and the whole document is dropped.
// Checks the schema (customUI.xsd), that no value is given both as it stands and by a callback,
// that what has callbacks has an id, and that built-in tabs and groups exist in the window: only
// the home tabs and their first groups are known here. Throws CXmlError (office/xml.h).
RibbonNode ReadRibbonDocument(const std::wstring& xml, RibbonWindow window);

}  // namespace quor::workbench

#endif
