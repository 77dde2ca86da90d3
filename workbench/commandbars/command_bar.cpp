#include "workbench/commandbars/command_bar.h"

#include <algorithm>
#include <climits>

#include "workbench/commandbars/button.h"
#include "workbench/commandbars/combo_box.h"
#include "workbench/commandbars/command_bars.h"
#include "workbench/commandbars/control_collection.h"
#include "workbench/commandbars/popup.h"

namespace quor::workbench {
namespace {

constexpr long kUsualHeight = 26;

BarSettings MenuSettings() {
  BarSettings settings;
  settings.type = mso::kPopupBar;
  settings.position = mso::kPopupPosition;
  return settings;
}

}  // namespace

CCommandBar::CCommandBar(CModel& model, std::shared_ptr<CControlRegistry> registry,
                         CCommandBars& owner, BarSettings initial)
    : CAutomation(model, Members()),
      settings(std::move(initial)),
      m_registry(std::move(registry)),
      m_owner(&owner),
      m_handle(m_registry->NextInstance()) {}

CCommandBar::CCommandBar(CModel& model, std::shared_ptr<CControlRegistry> registry,
                         CCommandBars& owner, CCommandBarPopup& popup)
    : CCommandBar(model, std::move(registry), owner, MenuSettings()) {
  m_popup = &popup;
}

std::wstring CCommandBar::Name() const {
  return m_popup != nullptr ? m_popup->settings.caption : settings.name;
}

void CCommandBar::RequireAlive() const {
  if (m_owner == nullptr) throw CModelError(E_FAIL, "The command bar has been deleted.");
}

void CCommandBar::Detach() noexcept {
  for (const auto& control : m_controls)
    control->Detach();
  m_controls.clear();
  m_owner = nullptr;
  m_popup = nullptr;
}

void CCommandBar::Changed() const {
  if (m_owner != nullptr) m_owner->Changed();
}

const std::vector<CModelPtr<CCommandBarControl>>& CCommandBar::LiveControls() const {
  RequireAlive();
  return m_controls;
}

CModelPtr<CAutomation> CCommandBar::Controls() {
  return MakeObject<CCommandBarControls>(Model(), CModelPtr<CCommandBar>(this)).get();
}

CModelPtr<CCommandBarControl> CCommandBar::Add(long type, std::optional<long> position) {
  RequireAlive();
  const long end = static_cast<long>(m_controls.size()) + 1;
  const long before = position.value_or(end);
  if (before < 1 || before > end) throw CModelError(E_INVALIDARG, "No such place on the bar.");
  CModelPtr<CCommandBarControl> control;
  switch (type) {
    case mso::kButton:
      control = MakeObject<CCommandBarButton>(Model(), m_registry, *this).get();
      break;
    case mso::kComboBox:
      control = MakeObject<CCommandBarComboBox>(Model(), m_registry, *this).get();
      break;
    case mso::kPopup:
      control = MakeObject<CCommandBarPopup>(Model(), m_registry, *this).get();
      break;
    default:
      throw CModelError(E_INVALIDARG, "A control of that type cannot be added.");
  }
  m_controls.insert(m_controls.begin() + (before - 1), control);
  Changed();
  return control;
}

void CCommandBar::Remove(CCommandBarControl& control) {
  const CModelPtr<CCommandBarControl> kept(&control);
  std::erase(m_controls, kept);
  control.Detach();
  Changed();
}

CModelPtr<CCommandBarControl> CCommandBar::Find(
    const std::function<bool(const CCommandBarControl&)>& wanted) const {
  for (const auto& control : m_controls) {
    if (wanted(*control)) return control;
    if (control->Menu() == nullptr) continue;
    if (auto found = control->Menu()->Find(wanted)) return found;
  }
  return {};
}

std::vector<ControlFace> CCommandBar::ControlFaces() const {
  std::vector<ControlFace> faces;
  for (const auto& control : m_controls)
    faces.push_back(control->Face());
  return faces;
}

BarFace CCommandBar::Face() const {
  BarFace face;
  face.handle = m_handle;
  face.name = settings.name;
  face.visible = settings.visible;
  face.enabled = settings.enabled;
  face.builtIn = settings.builtIn;
  face.menuBar = settings.type == mso::kMenuBar;
  face.position = static_cast<int>(settings.position);
  face.left = static_cast<int>(settings.left);
  face.top = static_cast<int>(settings.top);
  face.row = static_cast<int>(settings.row);
  face.controls = ControlFaces();
  return face;
}

long CCommandBar::UsualWidth(const ControlFace& face) noexcept {
  constexpr long kComboBox = 120;
  constexpr long kPicture = 23;
  constexpr long kLetter = 6;
  if (face.kind != ControlKind::Button && face.kind != ControlKind::Menu) return kComboBox;
  const long caption = face.showsCaption ? kLetter * static_cast<long>(face.caption.size()) + 8 : 0;
  return std::max((face.hasPicture ? kPicture : 0) + caption, kPicture);
}

long CCommandBar::Width() const {
  if (settings.width != 0) return settings.width;
  constexpr long kHandleAndEnd = 20;
  long width = kHandleAndEnd;
  for (const auto& control : m_controls) {
    const long own = control->settings.width;
    if (control->settings.visible) width += own != 0 ? own : UsualWidth(control->Face());
  }
  return width;
}

void CCommandBar::Delete() {
  if (settings.builtIn || m_popup != nullptr) {
    throw CModelError(E_FAIL, "Only bars that were added can be deleted.");
  }
  m_owner->Remove(*this);
}

long CCommandBar::Height() const {
  return settings.height != 0 ? settings.height : kUsualHeight;
}

void CCommandBar::SetEnabled(const CArguments& arguments) {
  settings.enabled = arguments.Bool(0);
  if (!settings.enabled) settings.visible = false;
  Changed();
}

void CCommandBar::SetVisible(const CArguments& arguments) {
  const bool visible = arguments.Bool(0);
  if (visible && !settings.enabled) throw CModelError(E_FAIL, "The bar is not enabled.");
  settings.visible = visible;
  Changed();
}

template <auto setting, long least, long most>
Member CCommandBar::Number(const wchar_t* name) {
  using Self = CCommandBar;
  return Property(
      name, [](Self& self) { return self.settings.*setting; },
      [](Self& self, const CArguments& arguments) {
        const long value = arguments.Long(0);
        if (value < least || value > most) throw CModelError(E_INVALIDARG);
        self.settings.*setting = value;
        self.Changed();
      });
}

const CMemberTable& CCommandBar::Members() {
  using Self = CCommandBar;
  using S = BarSettings;
  constexpr long kMost = 0x7FFF;
  static const CMemberTable table(
      "CommandBar", L"CommandBar", nullptr,
      {Get<&Self::Name>(L"Name"), Get<&Self::Controls>(L"Controls"),
       Method<&Self::Delete>(L"Delete"),
       Property(
           L"Enabled", [](Self& self) { return self.settings.enabled; },
           [](Self& self, const CArguments& arguments) { self.SetEnabled(arguments); }),
       Property(
           L"Visible", [](Self& self) { return self.settings.visible; },
           [](Self& self, const CArguments& arguments) { self.SetVisible(arguments); }),
       Number<&S::position, mso::kLeft, mso::kFloating>(L"Position"),
       Number<&S::row, -1, kMost>(L"RowIndex"), Number<&S::left, LONG_MIN, LONG_MAX>(L"Left"),
       Number<&S::top, LONG_MIN, LONG_MAX>(L"Top"), Get<&Self::Height>(L"Height"),
       Get<&Self::Width>(L"Width")});
  return table;
}

}  // namespace quor::workbench
