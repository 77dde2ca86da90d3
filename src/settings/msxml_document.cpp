#include "settings/msxml_document.h"

// clang-format off
#include "com/com_pointers.h"
#include <msxml2.h>
// clang-format on

#include <cstring>
#include <map>
#include <string>
#include <utility>

#include "settings/configuration.h"

// Declared in mingw's headers, but in none of its libraries:
// {2933BF95-7B36-11D2-B20E-00C04F983E60}.
static constexpr IID kXmlDomDocument2Iid = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument, IID_IXMLDOMDocument);
_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument2, kXmlDomDocument2Iid);
_COM_SMARTPTR_TYPEDEF(IXMLDOMDocumentType, IID_IXMLDOMDocumentType);
_COM_SMARTPTR_TYPEDEF(IXMLDOMElement, IID_IXMLDOMElement);
_COM_SMARTPTR_TYPEDEF(IXMLDOMNode, IID_IXMLDOMNode);
_COM_SMARTPTR_TYPEDEF(IXMLDOMProcessingInstruction, IID_IXMLDOMProcessingInstruction);
_COM_SMARTPTR_TYPEDEF(IXMLDOMText, IID_IXMLDOMText);
_COM_SMARTPTR_TYPEDEF(ICreateErrorInfo, IID_ICreateErrorInfo);
_COM_SMARTPTR_TYPEDEF(IErrorInfo, IID_IErrorInfo);
_COM_SMARTPTR_TYPEDEF(IStream, IID_IStream);

namespace quor {
namespace {

// A configuration has four levels, and its lists have at most this many entries.
constexpr int kDeepestElement = 8;
constexpr size_t kMostOfOneName = kHistoryLimit;
constexpr size_t kMostNames = 64;  // different names in one element
static_assert(kMostOfOneName >= kCallerListLimit && kMostOfOneName >= kSpeedDialCount);

[[noreturn]] void ThrowDocumentError(HRESULT result) {
  ICreateErrorInfoPtr details;
  IErrorInfoPtr info;
  if (SUCCEEDED(CreateErrorInfo(&details)) && SUCCEEDED(details->SetGUID(IID_IXMLDOMDocument))) {
    info = details;
  }
  throw _com_error(result, info.Detach(), false);
}

void Check(HRESULT result) {
  if (FAILED(result)) ThrowDocumentError(result);
}

IXMLDOMDocumentPtr CreateDocument() {
  CLSID clsid;
  Check(CLSIDFromProgID(L"MSXML.DOMDocument", &clsid));
  IXMLDOMDocumentPtr document;
  Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument,
                         reinterpret_cast<void**>(&document)));
  return document;
}

// Pass the bytes, not a path: MSXML treats a path as a URL and decodes escapes.
_variant_t BytesArgument(std::span<const std::byte> bytes) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
  if (array == nullptr) _com_issue_error(E_OUTOFMEMORY);
  std::memcpy(array->pvData, bytes.data(), bytes.size());
  VARIANT value;
  value.vt = VT_ARRAY | VT_UI1;
  value.parray = array;
  return {value, false};
}

// Makes the parser refuse document types and deep nesting early. Some parsers, Wine's for one,
// ignore these properties, so the result is checked as well.
void RestrictParser(IXMLDOMDocument2Ptr document) {
  if (document == nullptr) return;
  document->setProperty(BstrFromText(L"ProhibitDTD"), _variant_t(true));
  document->setProperty(BstrFromText(L"MaxElementDepth"), _variant_t(256L));
}

IXMLDOMElementPtr LoadRoot(std::span<const std::byte> bytes) {
  const IXMLDOMDocumentPtr document = CreateDocument();
  Check(document->put_async(VARIANT_FALSE));
  Check(document->put_validateOnParse(VARIANT_FALSE));
  Check(document->put_resolveExternals(VARIANT_FALSE));
  // Without this, a text of blanks would be read as empty.
  Check(document->put_preserveWhiteSpace(VARIANT_TRUE));
  RestrictParser(document);
  VARIANT_BOOL loaded = VARIANT_FALSE;
  Check(document->load(BytesArgument(bytes), &loaded));
  if (loaded == VARIANT_FALSE) return {};
  IXMLDOMDocumentTypePtr type;
  Check(document->get_doctype(&type));
  if (type != nullptr) return {};
  IXMLDOMElementPtr root;
  Check(document->get_documentElement(&root));
  return root;
}

std::wstring NameOf(const IXMLDOMNodePtr& node) {
  _bstr_t name;
  Check(node->get_nodeName(name.GetAddress()));
  return TextFromBstr(name);
}

// Reads the part of a tree that a configuration can use and skips the rest, however long or deep.
class CTreeReader {
 public:
  static XmlElement Read(const IXMLDOMNodePtr& node, std::wstring name, int depth) {
    XmlElement element{std::move(name), {}, {}};
    std::map<std::wstring, size_t> counts;
    bool hasText = false;
    IXMLDOMNodePtr child;
    Check(node->get_firstChild(&child));
    while (child != nullptr) {
      DOMNodeType type = NODE_INVALID;
      Check(child->get_nodeType(&type));
      if (type == NODE_ELEMENT) {
        if (depth < kDeepestElement) ReadChild(child, depth + 1, counts, element);
      } else if ((type == NODE_TEXT || type == NODE_CDATA_SECTION) && !hasText) {
        hasText = true;
        _variant_t value;
        Check(child->get_nodeValue(&value));
        if (value.vt == VT_BSTR) element.text = TextFromBstr(value.bstrVal);
      }
      IXMLDOMNodePtr next;
      Check(child->get_nextSibling(&next));
      child = next;
    }
    return element;
  }

 private:
  static void ReadChild(const IXMLDOMNodePtr& child, int depth,
                        std::map<std::wstring, size_t>& counts, XmlElement& element) {
    std::wstring name = NameOf(child);
    if (counts.size() == kMostNames && !counts.contains(name)) return;
    if (++counts[name] > kMostOfOneName) return;
    element.children.push_back(Read(child, std::move(name), depth));
  }
};

void AppendChild(const IXMLDOMNodePtr& parent, IXMLDOMNode* child) {
  IXMLDOMNodePtr appended;
  Check(parent->appendChild(child, &appended));
}

void AppendElement(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& parent,
                   const XmlElement& element) {
  IXMLDOMElementPtr node;
  Check(document->createElement(BstrFromText(element.name), &node));
  if (!element.text.empty()) {
    IXMLDOMTextPtr text;
    Check(document->createTextNode(BstrFromText(element.text), &text));
    AppendChild(node, text);
  }
  for (const XmlElement& child : element.children)
    AppendElement(document, node, child);
  AppendChild(parent, node);
}

IXMLDOMProcessingInstructionPtr CreateDeclaration(const IXMLDOMDocumentPtr& document) {
  IXMLDOMProcessingInstructionPtr declaration;
  Check(document->createProcessingInstruction(
      BstrFromText(L"xml"), BstrFromText(L"version='1.0' encoding='utf-8'"), &declaration));
  return declaration;
}

// Appends a copy of a node of another document. False if the parser refuses.
bool AppendCopy(const IXMLDOMDocumentPtr& document, const IXMLDOMNodePtr& node) {
  IXMLDOMNodePtr copy;
  Check(node->cloneNode(VARIANT_TRUE, &copy));
  IXMLDOMNodePtr appended;
  return SUCCEEDED(document->appendChild(copy, &appended));
}

std::vector<std::byte> ReadStream(IStream& stream) {
  STATSTG status;
  Check(stream.Stat(&status, STATFLAG_NONAME));
  std::vector<std::byte> bytes(static_cast<size_t>(status.cbSize.QuadPart));
  Check(stream.Seek({}, STREAM_SEEK_SET, nullptr));
  ULONG read = 0;
  Check(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read));
  if (read != bytes.size()) ThrowDocumentError(E_FAIL);
  return bytes;
}

}  // namespace

std::optional<XmlElement> ParseXmlDocument(std::span<const std::byte> bytes) {
  if (bytes.empty()) return std::nullopt;
  try {
    const IXMLDOMElementPtr root = LoadRoot(bytes);
    if (root == nullptr) return std::nullopt;
    return CTreeReader::Read(root, NameOf(root), 1);
  } catch (const _com_error&) {
    return std::nullopt;
  }
}

std::vector<std::byte> CXmlWriter::Format(const XmlElement& root) {
  const IXMLDOMDocumentPtr document = CreateDocument();
  // Wine's parser never releases a document in which a declaration was created, so create it once,
  // in a document of its own.
  if (m_declaration == nullptr) m_declaration = CreateDeclaration(CreateDocument());
  if (!AppendCopy(document, IXMLDOMNodePtr(m_declaration))) {
    AppendChild(document, CreateDeclaration(document));
  }
  AppendElement(document, document, root);

  IStreamPtr stream;
  Check(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
  Check(document->save(_variant_t(stream.GetInterfacePtr())));
  return ReadStream(*stream);
}

}  // namespace quor
