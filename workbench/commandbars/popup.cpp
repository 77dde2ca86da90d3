#include "workbench/commandbars/popup.h"

#include "workbench/commandbars/control_collection.h"

namespace quor::workbench {

CCommandBarPopup::CCommandBarPopup(CModel& model, const std::shared_ptr<CControlRegistry>& registry,
                                   CCommandBar& bar)
    : CCommandBarControl(model, Members(), registry, bar, mso::kPopup),
      m_menu(MakeObject<CCommandBar>(model, registry, *bar.Owner(), *this)) {}

ControlFace CCommandBarPopup::Face() const {
  ControlFace face = CCommandBarControl::Face();
  face.kind = ControlKind::Menu;
  if (m_menu) face.items = m_menu->ControlFaces();
  return face;
}

void CCommandBarPopup::Detach() noexcept {
  if (m_menu) m_menu->Detach();
  m_menu = {};
  CCommandBarControl::Detach();
}

const CMemberTable& CCommandBarPopup::Members() {
  using Self = CCommandBarPopup;
  static const CMemberTable table(
      "CommandBarPopup", L"CommandBarPopup", &ControlMembers(),
      {Get(L"CommandBar", [](Self& self) { return self.m_menu; }),
       Get(L"Controls", [](Self& self) { return self.m_menu->Controls(); })});
  return table;
}

}  // namespace quor::workbench
