#ifndef QUOR_WORKBENCH_HOST_BASE_PANEL_H
#define QUOR_WORKBENCH_HOST_BASE_PANEL_H

#include "workbench/host/base_stage.h"
#include "workbench/ui/outlook_window.h"

namespace quor::workbench {

// The panel beside Outlook's main window that shows the base and lets a person use it. Hidden until
// the base answers by itself: while a scenario scripts every byte, there is nothing to press.
class CBasePanel final : public IBasePanel {
 public:
  explicit CBasePanel(CBaseStage& base) : m_base(base) {}

  PanelFace Face() override;
  // Throws CUserActionError if the base's state does not allow it.
  void Press(int button) override;

 private:
  CBaseStage& m_base;
};

}  // namespace quor::workbench

#endif
