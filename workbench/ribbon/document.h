#ifndef QUOR_WORKBENCH_RIBBON_DOCUMENT_H
#define QUOR_WORKBENCH_RIBBON_DOCUMENT_H

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/ribbon/schema.h"

namespace quor::workbench {

struct RibbonNode {
  std::string element;  // "comboBox"
  std::string id;       // id, idQ or idMso, whichever is there
  bool custom = false;  // has an id of its own
  int line = 0;
  std::map<std::string, std::string, std::less<>> attributes;
  std::vector<RibbonNode> children;

  bool Has(std::string_view attribute) const { return attributes.contains(attribute); }
  // Empty where the attribute is missing: none may be empty in a document.
  std::string Attribute(std::string_view attribute) const;
};

// Reads a custom-UI document the way Office does: one violation and the whole document is dropped.
// `xml` is UTF-8. Throws CDocumentError (xml_reader.h).
RibbonNode ReadRibbonDocument(std::string_view xml, RibbonWindow window);

}  // namespace quor::workbench

#endif
