#include "workbench/ribbon/document.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "workbench/office/value.h"
#include "workbench/office/xml.h"

namespace quor::workbench {
namespace {

constexpr wchar_t kNamespace[] = L"http://schemas.microsoft.com/office/2006/01/customui";

struct BuiltInTab {
  RibbonWindow window;
  std::string_view id;
  std::string_view firstGroup;
};
constexpr BuiltInTab kBuiltInTabs[] = {
    {RibbonWindow::Explorer, "TabMail", "GroupMailNew"},
    {RibbonWindow::Explorer, "TabCalendarTableView", "GroupCalendarNew"},
    {RibbonWindow::Explorer, "TabCalendar", "GroupCalendarNew"},
    {RibbonWindow::Explorer, "TabContacts", "GroupContactsNew"},
    {RibbonWindow::Explorer, "TabTasks", "GroupTasksNew"},
    {RibbonWindow::Explorer, "TabNotes", "GroupNotesNew"},
    {RibbonWindow::Explorer, "TabJournals", "GroupJournalNew"},
    {RibbonWindow::Contact, "TabContact", "GroupActions"},
};

// ribbon_schema.rc adds it to every program that reads documents.
std::wstring Schema() {
  const HMODULE program = GetModuleHandleW(nullptr);
  const HRSRC place = FindResourceW(program, L"CUSTOM_UI", L"XML");
  const HGLOBAL loaded = LoadResource(program, place);
  if (loaded == nullptr) throw CXmlError("the program holds no schema");
  return WideFromUtf8(
      {static_cast<const char*>(LockResource(loaded)), SizeofResource(program, place)});
}

class CDocumentReader {
 public:
  explicit CDocumentReader(RibbonWindow window) : m_window(window) {}

  RibbonNode Node(IXMLDOMNode& element) {
    RibbonNode node;
    _bstr_t name;
    element.get_baseName(name.GetAddress());
    node.element = Utf8FromWide(WideFromBstr(name.GetBSTR()));
    ReadAttributes(element, node);
    CheckValues(node);
    CheckBuiltIns(node);
    if (node.element == "tab") m_tab = node.Attribute("idMso");
    IXMLDOMNodePtr child;
    for (element.get_firstChild(&child); child != nullptr;) {
      DOMNodeType type = NODE_INVALID;
      child->get_nodeType(&type);
      if (type == NODE_ELEMENT) node.children.push_back(Node(*child));
      IXMLDOMNodePtr next;
      child->get_nextSibling(&next);
      child = next;
    }
    return node;
  }

 private:
  static void ReadAttributes(IXMLDOMNode& element, RibbonNode& node) {
    IXMLDOMNamedNodeMapPtr attributes;
    element.get_attributes(&attributes);
    IXMLDOMNodePtr attribute;
    while (attributes != nullptr && attributes->nextNode(&attribute) == S_OK) {
      _bstr_t bstr;
      attribute->get_nodeName(bstr.GetAddress());
      const std::string name = Utf8FromWide(WideFromBstr(bstr.GetBSTR()));
      if (!name.starts_with("xmlns")) node.attributes.emplace(name, XmlText(*attribute));
    }
    for (const char* name : {"id", "idQ", "idMso"}) {
      if (node.Has(name)) node.id = node.Attribute(name);
    }
    node.custom = node.Has("id") || node.Has("idQ");
  }

  static void CheckValues(const RibbonNode& node) {
    for (const auto& [name, value] : node.attributes) {
      std::string getter = "get" + name;
      getter[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(getter[3])));
      if (node.Has(getter)) {
        // NOLINTNEXTLINE(performance-inefficient-string-concatenation): ends the loop
        throw CXmlError(node.element + ' ' + node.id + " has both " + name + " and " + getter);
      }
      if (node.id.empty() && (name == "onAction" || name.starts_with("get"))) {
        throw CXmlError(node.element + " has callbacks but no id");
      }
    }
  }

  void CheckBuiltIns(const RibbonNode& node) const {
    if (node.element != "tab" && node.element != "group") return;
    for (const char* name : {"idMso", "insertBeforeMso", "insertAfterMso"}) {
      if (!node.Has(name)) continue;
      const std::string id = node.Attribute(name);
      const bool known =
          std::any_of(std::begin(kBuiltInTabs), std::end(kBuiltInTabs), [&](const BuiltInTab& tab) {
            if (tab.window != m_window) return false;
            // A custom tab has no built-in groups.
            return node.element == "tab" ? tab.id == id : tab.id == m_tab && tab.firstGroup == id;
          });
      if (!known) throw CXmlError("there is no built-in " + node.element + ' ' + id + " here");
    }
  }

  const RibbonWindow m_window;
  std::string m_tab;  // idMso of the current tab
};

}  // namespace

std::string RibbonNode::Attribute(std::string_view attribute) const {
  const auto found = attributes.find(attribute);
  return found == attributes.end() ? std::string() : found->second;
}

RibbonNode ReadRibbonDocument(const std::wstring& xml, RibbonWindow window) {
  const IXMLDOMDocument2Ptr document = ParseXml(xml);
  ValidateXml(*document, kNamespace, Schema());
  IXMLDOMElementPtr root;
  document->get_documentElement(&root);
  return CDocumentReader(window).Node(*root);
}

}  // namespace quor::workbench
