#include "workbench/commandbars/popup.h"

#include "workbench/commandbars/control_collection.h"

namespace quor::workbench {

CCommandBarPopup::CCommandBarPopup(CModel& model, std::shared_ptr<CControlRegistry> registry,
                                   CCommandBar& bar)
    : CCommandBarControl(model, Members(), Events(), registry, bar, mso::kPopup),
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

IDispatch* CCommandBarPopup::CommandBar() const {
  RequireAlive();
  return m_menu.get();
}

CModelPtr<CAutomation> CCommandBarPopup::Controls() const {
  RequireAlive();
  return m_menu->Controls();
}

const EventTable& CCommandBarPopup::Events() {
  static const EventTable table{};
  return table;
}

const CMemberTable& CCommandBarPopup::Members() {
  using Self = CCommandBarPopup;
  static const CMemberTable table("CommandBarPopup", {mso::kPopupId}, &ControlMembers(),
                                  {Get<&Self::CommandBar>(L"CommandBar", 0x60050000),
                                   Get<&Self::Controls>(L"Controls", 0x60050001)});
  return table;
}

}  // namespace quor::workbench
