#ifndef QUOR_SETTINGS_MSXML_DOCUMENT_H
#define QUOR_SETTINGS_MSXML_DOCUMENT_H

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "com/com_pointers.h"
#include "settings/xml_element.h"

namespace quor {

// Parses XML text with MSXML, in the encoding that the text declares, and returns its document
// element. Returns nothing if there is no parser, if the text is not well-formed, or if it declares
// a document type, whose entities would be unsafe. Skips elements nested too deeply for any reader,
// and in each element all children of one name beyond the length of the longest list.
std::optional<XmlElement> ParseXmlDocument(std::span<const std::byte> bytes);

// Writes each document from scratch. Destroy it before COM is uninitialised on the thread.
class CXmlWriter {
 public:
  // Returns the document as UTF-8 XML text. A failure of MSXML is thrown as a _com_error with
  // IID_IXMLDOMDocument.
  std::vector<std::byte> Format(const XmlElement& root);

 private:
  IUnknownPtr m_declaration;  // each document gets a copy
};

}  // namespace quor

#endif
