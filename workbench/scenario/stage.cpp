#include "workbench/scenario/stage.h"

#include <algorithm>
#include <string_view>

namespace quor::workbench {

bool IsCalled(const WindowView& window, const std::string& name) {
  constexpr std::string_view kWith = " with ";
  if (window.title == name || window.className == name) return true;
  if (window.title.empty() || !name.starts_with(window.title)) return false;
  const std::string_view rest = std::string_view(name).substr(window.title.size());
  if (!rest.starts_with(kWith)) return false;
  return std::ranges::find(window.texts, rest.substr(kWith.size())) != window.texts.end();
}

}  // namespace quor::workbench
