#ifndef QUOR_WORKBENCH_RIBBON_XML_READER_H
#define QUOR_WORKBENCH_RIBBON_XML_READER_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quor::workbench {

// An error in a document, and its line (from 1).
class CDocumentError : public std::runtime_error {
 public:
  CDocumentError(int line, const std::string& text)
      : std::runtime_error("line " + std::to_string(line) + ": " + text) {}
};

struct XmlElement {
  std::string space;  // namespace URI, empty for none
  std::string name;   // local name
  int line = 0;
  // In document order, without namespace declarations; names as written.
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<XmlElement> children;
};

// Reads a document of elements and attributes only: text other than blanks, a document type
// definition and malformed XML throw CDocumentError. UTF-8; an encoding declaration is ignored,
// because the text is already decoded.
XmlElement ReadXml(std::string_view text);

}  // namespace quor::workbench

#endif
