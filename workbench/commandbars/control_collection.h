#ifndef QUOR_WORKBENCH_COMMANDBARS_CONTROL_COLLECTION_H
#define QUOR_WORKBENCH_COMMANDBARS_CONTROL_COLLECTION_H

#include <vector>

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {

// The controls that one bar has at the time of each call, or the result of FindControls.
class CCommandBarControls final : public CAutomation {
 public:
  CCommandBarControls(CModel& model, CModelPtr<CCommandBar> bar);
  CCommandBarControls(CModel& model, std::vector<CModelPtr<CCommandBarControl>> found);

  std::string ObjectName() const override;

 protected:
  void OnGone() noexcept override;

 private:
  static const CMemberTable& Members();

  const std::vector<CModelPtr<CCommandBarControl>>& Content() const;
  CModelPtr<CCommandBarControl> Add(const CArguments& arguments);
  long Count() const { return static_cast<long>(Content().size()); }
  CModelPtr<CCommandBarControl> Item(const CArguments& arguments) const;
  IDispatch* Parent() const { return m_bar.get(); }

  CModelPtr<CCommandBar> m_bar;
  std::vector<CModelPtr<CCommandBarControl>> m_found;
};

}  // namespace quor::workbench

#endif
