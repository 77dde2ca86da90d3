#ifndef QUOR_WORKBENCH_OFFICE_XML_H
#define QUOR_WORKBENCH_OFFICE_XML_H

#include <stdexcept>
#include <string>

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <msxml2.h>
#include <comdef.h>
// clang-format on

// MSXML 6, for all XML reading in the workbench.

namespace quor::workbench {

constexpr IID kXmlDocumentId = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
constexpr IID kXmlSchemasId = {
    0x373984C8, 0xB845, 0x449B, {0x91, 0xE7, 0x45, 0xAC, 0x83, 0x03, 0x6A, 0xDE}};

_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument2, kXmlDocumentId);
_COM_SMARTPTR_TYPEDEF(IXMLDOMElement, IID_IXMLDOMElement);
_COM_SMARTPTR_TYPEDEF(IXMLDOMNamedNodeMap, IID_IXMLDOMNamedNodeMap);
_COM_SMARTPTR_TYPEDEF(IXMLDOMNode, IID_IXMLDOMNode);
_COM_SMARTPTR_TYPEDEF(IXMLDOMNodeList, IID_IXMLDOMNodeList);
_COM_SMARTPTR_TYPEDEF(IXMLDOMParseError, IID_IXMLDOMParseError);
_COM_SMARTPTR_TYPEDEF(IXMLDOMSchemaCollection, kXmlSchemasId);

// The document is not well-formed or violates its schema.
class CXmlError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Both throw CXmlError if the document is not well-formed. Blanks are kept.
IXMLDOMDocument2Ptr ParseXml(const std::wstring& text);
IXMLDOMDocument2Ptr LoadXml(const std::wstring& path);

// Throws CXmlError if `document` violates the schema of its namespace.
void ValidateXml(IXMLDOMDocument2& document, const std::wstring& space, const std::wstring& schema);

std::string XmlText(IXMLDOMNode& node);

}  // namespace quor::workbench

#endif
