#ifndef QUOR_WORKBENCH_COMMANDBARS_POPUP_H
#define QUOR_WORKBENCH_COMMANDBARS_POPUP_H

#include "workbench/commandbars/command_bar.h"
#include "workbench/commandbars/control.h"

namespace quor::workbench {

// A drop-down menu. Its items are the controls of its own bar.
class CCommandBarPopup final : public CCommandBarControl {
 public:
  CCommandBarPopup(CModel& model, const std::shared_ptr<CControlRegistry>& registry,
                   CCommandBar& bar);

  ControlFace Face() const override;
  CCommandBar* Menu() const noexcept override { return m_menu.get(); }
  void Detach() noexcept override;

 private:
  static const CMemberTable& Members();

  CModelPtr<CCommandBar> m_menu;
};

}  // namespace quor::workbench

#endif
