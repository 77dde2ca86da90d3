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
// declares. Nothing when there is no parser, when the text is not well-formed, or when it declares
// a document type (no entity of it is trusted). Left out are elements nested deeper than any reader
// looks, and of those of one name in one element all after as many as the longest list may have.
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
