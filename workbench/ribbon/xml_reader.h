#ifndef QUOR_WORKBENCH_RIBBON_XML_READER_H
#define QUOR_WORKBENCH_RIBBON_XML_READER_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quor::workbench {

// What is wrong with a document, and in which line (from 1).
class CDocumentError : public std::runtime_error {
 public:
  CDocumentError(int line, const std::string& text)
      : std::runtime_error("line " + std::to_string(line) + ": " + text) {}
};

struct XmlElement {
  std::string space;  // namespace URI, empty for none
  std::string name;   // local name
  int line = 0;
  // In the order of the document, namespace declarations left out, names as written.
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<XmlElement> children;
};

// Reads a document that holds elements and attributes only: text that is not blank, a document type
// definition and anything not well-formed throw CDocumentError. UTF-8; an encoding declaration is
// passed over, since the text has been decoded already.
XmlElement ReadXml(std::string_view text);

}  // namespace quor::workbench

#endif
