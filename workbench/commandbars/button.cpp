#include "workbench/commandbars/button.h"

#include "workbench/commandbars/command_bar.h"

namespace quor::workbench {

CCommandBarButton::CCommandBarButton(CModel& model, std::shared_ptr<CControlRegistry> registry,
                                     CCommandBar& bar)
    : CCommandBarControl(model, Members(), std::move(registry), bar, mso::kButton) {}

void CCommandBarButton::OnGone() noexcept {
  m_picture = nullptr;
  m_mask = nullptr;
  CCommandBarControl::OnGone();
}

ControlFace CCommandBarButton::Face() const {
  ControlFace face = CCommandBarControl::Face();
  face.kind = ControlKind::Button;
  face.hasPicture = m_picture != nullptr;
  face.hasMask = m_mask != nullptr;
  face.picture = m_style == mso::kCaption || m_style == mso::kWrapCaption ? nullptr : m_pixels;
  face.showsCaption = m_style == mso::kAutomatic ? !face.hasPicture : m_style != mso::kIcon;
  return face;
}

void CCommandBarButton::Click() {
  const CModelPtr<CCommandBarControl> self(this);
  for (const auto& twin : Twins()) {
    if (!twin->IsDeleted()) twin->FireCancellable(L"Click", {static_cast<IDispatch*>(this)});
  }
}

void CCommandBarButton::SetStyle(const CArguments& arguments) {
  const long style = arguments.Long(0);
  switch (style) {
    case mso::kAutomatic:
    case mso::kIcon:
    case mso::kCaption:
    case mso::kIconAndCaption:
    case mso::kIconAndWrapCaption:
    case mso::kIconAndCaptionBelow:
    case mso::kWrapCaption:
    case mso::kIconAndWrapCaptionBelow:
      m_style = style;
      break;
    default:
      throw CModelError(E_INVALIDARG);
  }
  Bar()->Changed();
}

void CCommandBarButton::SetPicture(const CArguments& arguments) {
  m_picture = BitmapPicture(arguments.Object(0));
  if (!m_picture) m_mask = nullptr;
  ComposeFace();
}

void CCommandBarButton::SetMask(const CArguments& arguments) {
  if (!m_picture) throw CModelError(E_FAIL, "There is no picture that could be masked.");
  m_mask = BitmapPicture(arguments.Object(0));
  ComposeFace();
}

void CCommandBarButton::ComposeFace() {
  m_pixels = m_picture ? MaskedPixels(m_picture, m_mask) : nullptr;
  Bar()->Changed();
}

const CMemberTable& CCommandBarButton::Members() {
  using Self = CCommandBarButton;
  static const CMemberTable table(
      "CommandBarButton", L"_CommandBarButton", &ControlMembers(),
      {Property(
           L"Style", [](Self& self) { return self.m_style; },
           [](Self& self, const CArguments& arguments) { self.SetStyle(arguments); }),
       Property(
           L"Picture", [](Self& self) { return static_cast<IDispatch*>(self.m_picture); },
           [](Self& self, const CArguments& arguments) { self.SetPicture(arguments); }),
       Property(
           L"Mask", [](Self& self) { return static_cast<IDispatch*>(self.m_mask); },
           [](Self& self, const CArguments& arguments) { self.SetMask(arguments); })},
      {L"_CommandBarButtonEvents"});
  return table;
}

}  // namespace quor::workbench
