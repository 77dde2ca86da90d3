#ifndef QUOR_WORKBENCH_RIBBON_SCHEMA_H
#define QUOR_WORKBENCH_RIBBON_SCHEMA_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The Office 2006 custom-UI schema as tables.

namespace quor::workbench {

constexpr const char* kCustomUiNamespace = "http://schemas.microsoft.com/office/2006/01/customui";

struct ChildRule {
  std::string name;
  std::string type;  // of the child, for FindElementType
  size_t least = 0;
  size_t most = 1000;
  int rank = 0;  // children of a higher rank come after those of a lower one
};

struct ElementType {
  std::string type;                     // unique: "Button", "ButtonInMenu"
  std::vector<std::string> attributes;  // all that are allowed
  std::vector<ChildRule> children;
  bool needsId = false;  // exactly one of id, idQ, idMso; else at most one
};

// Throws std::out_of_range for an unknown type.
const ElementType& FindElementType(std::string_view type);

// The error in an attribute's value; nothing if it is valid.
std::optional<std::string> FaultOfAttribute(const std::string& name, const std::string& value);

// Attributes that exclude each other.
const std::vector<std::vector<std::string>>& ExclusiveAttributes();

enum class RibbonWindow { Explorer, Contact };

// Whether a window of that kind has the built-in tab, and the tab the built-in group. Only the home
// tabs and their first groups are known.
bool HasBuiltInTab(RibbonWindow window, std::string_view tab);
bool HasBuiltInGroup(RibbonWindow window, std::string_view tab, std::string_view group);

struct BuiltInTab {
  RibbonWindow window;
  const char* id;
  const char* caption;
  const char* firstGroup;
};
const std::vector<BuiltInTab>& BuiltInTabs();

}  // namespace quor::workbench

#endif
