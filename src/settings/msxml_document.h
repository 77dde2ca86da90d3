#ifndef QUOR_SETTINGS_MSXML_DOCUMENT_H
#define QUOR_SETTINGS_MSXML_DOCUMENT_H

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "com/com_pointers.h"
#include "settings/xml_element.h"

namespace quor {

// The document element of the XML text in `bytes`, parsed by MSXML in the encoding the text
// declares. Nothing when there is no parser, when the text is not well-formed, when it declares a
// document type (no entity of it is trusted), or when it has more elements than any configuration.
// Elements nested deeper than any reader looks are left out.
std::optional<XmlElement> ParseXmlDocument(std::span<const std::byte> bytes);

// Writes documents, each made anew. To be destroyed before COM leaves the thread.
class CXmlWriter {
 public:
  // The document as UTF-8 XML text. A failure of MSXML is thrown as a _com_error that carries
  // IID_IXMLDOMDocument.
  std::vector<std::byte> Format(const XmlElement& root);

 private:
  IUnknownPtr m_declaration;  // every document gets a copy
};

}  // namespace quor

#endif
