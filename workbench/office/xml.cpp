#include "workbench/office/xml.h"

#include "workbench/office/value.h"

namespace quor::workbench {
namespace {

IXMLDOMDocument2Ptr NewDocument() {
  IXMLDOMDocument2Ptr document;
  if (FAILED(document.CreateInstance(L"Msxml2.DOMDocument.6.0"))) {
    throw CXmlError("MSXML 6 is missing");
  }
  document->put_async(VARIANT_FALSE);
  document->put_preserveWhiteSpace(VARIANT_TRUE);
  return document;
}

[[noreturn]] void Fail(IXMLDOMParseError* error, const std::string& otherwise) {
  long line = 0;
  _bstr_t reason;
  if (error != nullptr) {
    error->get_line(&line);
    error->get_reason(reason.GetAddress());
  }
  const std::string told = Utf8FromWide(WideFromBstr(reason.GetBSTR()));
  throw CXmlError((line != 0 ? "line " + std::to_string(line) + ": " : "") +
                  (told.empty() ? otherwise : told));
}

}  // namespace

IXMLDOMDocument2Ptr ParseXml(const std::wstring& text) {
  IXMLDOMDocument2Ptr document = NewDocument();
  VARIANT_BOOL parsed = VARIANT_FALSE;
  if (document->loadXML(_bstr_t(text.c_str()), &parsed) != S_OK || !parsed) {
    IXMLDOMParseErrorPtr error;
    document->get_parseError(&error);
    Fail(error, "not well-formed XML");
  }
  return document;
}

IXMLDOMDocument2Ptr LoadXml(const std::wstring& path) {
  IXMLDOMDocument2Ptr document = NewDocument();
  VARIANT_BOOL loaded = VARIANT_FALSE;
  if (document->load(_variant_t(path.c_str()), &loaded) != S_OK || !loaded) {
    throw CXmlError("the file is missing or not well-formed XML");
  }
  return document;
}

void ValidateXml(IXMLDOMDocument2& document, const std::wstring& space,
                 const std::wstring& schema) {
  IXMLDOMSchemaCollectionPtr schemas;
  if (FAILED(schemas.CreateInstance(L"Msxml2.XMLSchemaCache.6.0")) ||
      FAILED(schemas->add(_bstr_t(space.c_str()), _variant_t(static_cast<IDispatch*>(
                                                      ParseXml(schema).GetInterfacePtr())))) ||
      FAILED(document.putref_schemas(
          _variant_t(static_cast<IDispatch*>(schemas.GetInterfacePtr()))))) {
    throw CXmlError("the schema cannot be read");
  }
  IXMLDOMParseErrorPtr error;
  if (document.validate(&error) != S_OK) Fail(error, "it does not follow the schema");
}

std::string XmlText(IXMLDOMNode& node) {
  _bstr_t text;
  node.get_text(text.GetAddress());
  return Utf8FromWide(WideFromBstr(text.GetBSTR()));
}

}  // namespace quor::workbench
