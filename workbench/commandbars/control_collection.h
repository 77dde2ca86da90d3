#ifndef QUOR_WORKBENCH_COMMANDBARS_CONTROL_COLLECTION_H
#define QUOR_WORKBENCH_COMMANDBARS_CONTROL_COLLECTION_H

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {

// The controls that one bar has at the time of each call.
class CCommandBarControls final : public CAutomation {
 public:
  CCommandBarControls(CModel& model, CModelPtr<CCommandBar> bar);

  std::string ObjectName() const override { return m_bar->ObjectName(); }

 protected:
  void OnGone() noexcept override { m_bar = {}; }

 private:
  static const CMemberTable& Members();
  CModelPtr<CCommandBarControl> Add(const CArguments& arguments);
  CModelPtr<CCommandBarControl> Item(const CArguments& arguments);

  CModelPtr<CCommandBar> m_bar;
};

}  // namespace quor::workbench

#endif
