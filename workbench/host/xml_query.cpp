#include "workbench/host/xml_query.h"

// clang-format off
#include <windows.h>
#include <ole2.h>
#include <msxml2.h>
#include <comdef.h>
// clang-format on

#include "workbench/office/value.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

namespace {

constexpr IID kDocument2Id = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument, IID_IXMLDOMDocument);
_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument2, kDocument2Id);
_COM_SMARTPTR_TYPEDEF(IXMLDOMNodeList, IID_IXMLDOMNodeList);
_COM_SMARTPTR_TYPEDEF(IXMLDOMNode, IID_IXMLDOMNode);

struct Bstr {
  explicit Bstr(const std::wstring& text) : value(SysAllocString(text.c_str())) {}
  Bstr() = default;
  ~Bstr() { SysFreeString(value); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR value = nullptr;
};

IXMLDOMDocumentPtr LoadDocument(const std::wstring& path) {
  IXMLDOMDocumentPtr document;
  CLSID classId = {};
  CLSIDFromProgID(L"MSXML.DOMDocument", &classId);
  if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                              reinterpret_cast<void**>(&document)))) {
    throw CExpectationFailure("there is no XML parser");
  }
  document->put_async(VARIANT_FALSE);
  document->put_preserveWhiteSpace(VARIANT_TRUE);
  const Bstr name(path);
  VARIANT source = {};
  V_VT(&source) = VT_BSTR;
  V_BSTR(&source) = name.value;
  VARIANT_BOOL loaded = VARIANT_FALSE;
  if (document->load(source, &loaded) != S_OK || !loaded) {
    throw CExpectationFailure("the file is missing or not well-formed XML");
  }
  return document;
}

void SelectByXPath(IXMLDOMDocument* document) {
  IXMLDOMDocument2Ptr extended;
  if (FAILED(document->QueryInterface(kDocument2Id, reinterpret_cast<void**>(&extended)))) return;
  const Bstr property(L"SelectionLanguage");
  const Bstr language(L"XPath");
  VARIANT value = {};
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = language.value;
  extended->setProperty(property.value, value);
}

}  // namespace

std::vector<std::string> QueryXmlFile(const std::wstring& path, const std::string& xpath) {
  const IXMLDOMDocumentPtr document = LoadDocument(path);
  SelectByXPath(document);
  const Bstr query(WideFromUtf8(xpath));
  IXMLDOMNodeListPtr nodes;
  if (document->selectNodes(query.value, &nodes) != S_OK) {
    throw CScenarioError("not an XPath: " + xpath);
  }
  std::vector<std::string> texts;
  IXMLDOMNodePtr node;
  while (nodes->nextNode(&node) == S_OK) {
    Bstr text;
    node->get_text(&text.value);
    texts.push_back(Utf8FromWide(WideFromBstr(text.value)));
  }
  return texts;
}

}  // namespace quor::workbench
