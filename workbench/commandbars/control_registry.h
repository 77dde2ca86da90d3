#ifndef QUOR_WORKBENCH_COMMANDBARS_CONTROL_REGISTRY_H
#define QUOR_WORKBENCH_COMMANDBARS_CONTROL_REGISTRY_H

#include <algorithm>
#include <vector>

namespace quor::workbench {

class CCommandBarControl;

// Every control of all windows of the session. Office matches events by tag across windows, so all
// windows share one registry.
class CControlRegistry {
 public:
  int NextInstance() noexcept { return ++m_lastInstance; }
  void Add(CCommandBarControl& control) { m_controls.push_back(&control); }
  void Remove(const CCommandBarControl& control) noexcept { std::erase(m_controls, &control); }
  const std::vector<CCommandBarControl*>& Controls() const noexcept { return m_controls; }

 private:
  std::vector<CCommandBarControl*> m_controls;
  int m_lastInstance = 0;
};

}  // namespace quor::workbench

#endif
