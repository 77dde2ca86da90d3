#ifndef QUOR_WORKBENCH_HOST_BASE_PANEL_H
#define QUOR_WORKBENCH_HOST_BASE_PANEL_H

#include "workbench/host/base_stage.h"
#include "workbench/ui/outlook_window.h"

namespace quor::workbench {

// The base as a person sees and works it, beside Outlook's main window. Hidden until the base
// answers by itself: a scenario that scripts every byte has nothing to press.
class CBasePanel final : public IBasePanel {
 public:
  explicit CBasePanel(CBaseStage& base) : m_base(base) {}

  PanelFace Face() override;
  // Throws CUserActionError where the base's state does not allow it.
  void Press(int button) override;

 private:
  CBaseStage& m_base;
};

}  // namespace quor::workbench

#endif
