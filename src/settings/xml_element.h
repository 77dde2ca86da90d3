#ifndef QUOR_SETTINGS_XML_ELEMENT_H
#define QUOR_SETTINGS_XML_ELEMENT_H

#include <string>
#include <vector>

namespace quor {

// The part of XML that the configuration uses: an element's name, its first text child (empty if
// there is none), and its child elements in document order.
struct XmlElement {
  std::wstring name;
  std::wstring text;
  std::vector<XmlElement> children;
};

}  // namespace quor

#endif
