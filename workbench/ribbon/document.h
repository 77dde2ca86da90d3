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
  std::string id;       // id, idQ or idMso, whichever exists
  bool custom = false;  // has its own id
  int line = 0;
  std::map<std::string, std::string, std::less<>> attributes;
  std::vector<RibbonNode> children;

  bool Has(std::string_view attribute) const { return attributes.contains(attribute); }
  // Empty if the attribute is missing: a document has no empty attributes.
  std::string Attribute(std::string_view attribute) const;
};

// Reads a custom-UI document as Office does: one violation invalidates the whole document. `xml` is
// UTF-8. Throws CDocumentError (xml_reader.h).
RibbonNode ReadRibbonDocument(std::string_view xml, RibbonWindow window);

}  // namespace quor::workbench

#endif
