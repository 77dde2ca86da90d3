#include "workbench/ribbon/document.h"

#include <algorithm>
#include <set>

#include "workbench/ribbon/xml_reader.h"

namespace quor::workbench {
namespace {

class CDocumentReader {
 public:
  explicit CDocumentReader(RibbonWindow window) : m_window(window) {}

  RibbonNode Root(const XmlElement& element) {
    if (element.name != "customUI") {
      throw CDocumentError(element.line, "the root element is " + element.name + ", not customUI");
    }
    return Node(element, FindElementType("CustomUi"));
  }

 private:
  RibbonNode Node(const XmlElement& element, const ElementType& type) {
    if (element.space != kCustomUiNamespace) {
      throw CDocumentError(element.line,
                           element.name + " is not in the namespace " + kCustomUiNamespace);
    }
    RibbonNode node;
    node.element = element.name;
    node.line = element.line;
    ReadAttributes(element, type, node);
    CheckExclusive(node);
    ReadId(type, node);
    CheckBuiltIns(node);
    if (node.element == "tab") m_tab = node.Attribute("idMso");
    ReadChildren(element, type, node);
    return node;
  }

  static void ReadAttributes(const XmlElement& element, const ElementType& type, RibbonNode& node) {
    for (const auto& [name, value] : element.attributes) {
      if (std::find(type.attributes.begin(), type.attributes.end(), name) ==
          type.attributes.end()) {
        throw CDocumentError(element.line,
                             "attribute " + name + " is not allowed on " + element.name);
      }
      if (const auto fault = FaultOfAttribute(name, value)) {
        throw CDocumentError(element.line,
                             "attribute " + name + " of " + element.name + " " + *fault);
      }
      node.attributes.emplace(name, value);
    }
    if (element.name == "dynamicMenu" && !node.Has("getContent")) {
      throw CDocumentError(element.line, "dynamicMenu needs getContent");
    }
  }

  static void CheckExclusive(const RibbonNode& node) {
    for (const auto& set : ExclusiveAttributes()) {
      const std::string* first = nullptr;
      for (const std::string& name : set) {
        if (!node.Has(name)) continue;
        if (first != nullptr) {
          throw CDocumentError(node.line, node.element + " has both " + *first + " and " + name);
        }
        first = &name;
      }
    }
  }

  void ReadId(const ElementType& type, RibbonNode& node) {
    node.custom = node.Has("id") || node.Has("idQ");
    for (const char* name : {"id", "idQ", "idMso"}) {
      if (node.Has(name)) node.id = node.Attribute(name);
    }
    if (type.needsId && node.id.empty()) {
      throw CDocumentError(node.line, node.element + " has no id");
    }
    if (node.Has("id") && !m_ids.insert(node.id).second) {
      throw CDocumentError(node.line, "the id " + node.id + " is there twice");
    }
  }

  void CheckBuiltIns(const RibbonNode& node) const {
    const auto known = [&](const std::string& id) {
      return node.element == "tab" ? HasBuiltInTab(m_window, id)
                                   : HasBuiltInGroup(m_window, m_tab, id);
    };
    if (node.element != "tab" && node.element != "group") return;
    for (const char* name : {"idMso", "insertBeforeMso", "insertAfterMso"}) {
      if (!node.Has(name) || known(node.Attribute(name))) continue;
      // A custom tab has no built-in groups.
      throw CDocumentError(
          node.line, "there is no built-in " + node.element + " " + node.Attribute(name) + " here");
    }
  }

  void ReadChildren(const XmlElement& element, const ElementType& type, RibbonNode& node) {
    std::map<std::string, size_t> counts;
    int rank = 0;
    for (const XmlElement& child : element.children) {
      const auto rule = std::find_if(type.children.begin(), type.children.end(),
                                     [&](const ChildRule& one) { return one.name == child.name; });
      if (rule == type.children.end()) {
        throw CDocumentError(child.line, child.name + " is not allowed in " + element.name);
      }
      if (rule->rank < rank) {
        throw CDocumentError(child.line, child.name + " comes too late in " + element.name);
      }
      rank = rule->rank;
      ++counts[child.name];
      node.children.push_back(Node(child, FindElementType(rule->type)));
    }
    for (const ChildRule& rule : type.children) {
      if (counts[rule.name] < rule.least || counts[rule.name] > rule.most) {
        throw CDocumentError(element.line, element.name + " holds " +
                                               std::to_string(counts[rule.name]) + " " + rule.name +
                                               " elements");
      }
    }
  }

  const RibbonWindow m_window;
  std::string m_tab;  // idMso of the current tab
  std::set<std::string> m_ids;
};

}  // namespace

std::string RibbonNode::Attribute(std::string_view attribute) const {
  const auto found = attributes.find(attribute);
  return found == attributes.end() ? std::string() : found->second;
}

RibbonNode ReadRibbonDocument(std::string_view xml, RibbonWindow window) {
  return CDocumentReader(window).Root(ReadXml(xml));
}

}  // namespace quor::workbench
