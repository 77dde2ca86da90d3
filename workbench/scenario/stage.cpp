#include "workbench/scenario/stage.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace quor::workbench {

std::string RoleOf(std::string_view id) {
  // The first part that the id contains: a menu's id may also contain "Dial".
  constexpr std::pair<std::string_view, const char*> kRoles[] = {{"Line1", "line1"},
                                                                 {"Line2", "line2"},
                                                                 {"FromCell", "cell"},
                                                                 {"from Cell", "cell"},
                                                                 {"CallerList", "caller-list"},
                                                                 {"Caller List", "caller-list"},
                                                                 {"SpeedDial", "speed-dial"},
                                                                 {"Speed dial", "speed-dial"},
                                                                 {"Option", "options"},
                                                                 {"Dial", "dial"}};
  for (const auto& [part, role] : kRoles) {
    if (id.find(part) != std::string_view::npos) return role;
  }
  return {};
}

bool IsCalled(const WindowView& window, const std::string& name) {
  constexpr std::string_view kWith = " with ";
  if (window.title == name || window.className == name) return true;
  if (window.title.empty() || !name.starts_with(window.title)) return false;
  const std::string_view rest = std::string_view(name).substr(window.title.size());
  if (!rest.starts_with(kWith)) return false;
  return std::ranges::find(window.texts, rest.substr(kWith.size())) != window.texts.end();
}

}  // namespace quor::workbench
