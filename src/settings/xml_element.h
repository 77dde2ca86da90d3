#ifndef QUOR_SETTINGS_XML_ELEMENT_H
#define QUOR_SETTINGS_XML_ELEMENT_H

#include <string>
#include <vector>

namespace quor {

// An element of the configuration document, as far as the configuration uses XML: a name, the text
// of the first text child (empty when there is none), and the child elements in document order.
struct XmlElement {
  std::wstring name;
  std::wstring text;
  std::vector<XmlElement> children;
};

}  // namespace quor

#endif
