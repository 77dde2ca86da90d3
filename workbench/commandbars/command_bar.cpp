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

CModelPtr<CCommandBarControl> CCommandBar::Add(const NewControl& wanted) {
  RequireAlive();
  const long end = static_cast<long>(m_controls.size()) + 1;
  const long before = wanted.before.value_or(end);
  if (before < 1 || before > end) throw CModelError(E_INVALIDARG, "No such place on the bar.");
  CModelPtr<CCommandBarControl> control;
  switch (wanted.type) {
    case mso::kButton:
      control = MakeObject<CCommandBarButton>(Model(), m_registry, *this).get();
      break;
    case mso::kEdit:
    case mso::kDropdown:
    case mso::kComboBox:
      control = MakeObject<CCommandBarComboBox>(Model(), m_registry, *this, wanted.type).get();
      break;
    case mso::kPopup:
      control = MakeObject<CCommandBarPopup>(Model(), m_registry, *this).get();
      break;
    default:
      throw CModelError(E_INVALIDARG, "A control of that type cannot be added.");
  }
  control->settings.id = wanted.id;
  control->settings.parameter = wanted.parameter;
  control->settings.temporary = wanted.temporary;
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

long CCommandBar::IndexOf(const CCommandBarControl& control) const {
  const auto found = std::find_if(m_controls.begin(), m_controls.end(),
                                  [&control](const auto& one) { return one.get() == &control; });
  return static_cast<long>(found - m_controls.begin()) + 1;
}

void CCommandBar::Collect(const ControlQuery& query,
                          std::vector<CModelPtr<CCommandBarControl>>& found) const {
  if (query.visibleOnly && m_popup == nullptr && !IsShown()) return;
  for (const auto& control : m_controls) {
    if (control->Matches(query)) found.push_back(control);
    if (query.recursive && control->Menu() != nullptr) control->Menu()->Collect(query, found);
  }
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

IDispatch* CCommandBar::Application() const {
  return m_owner->ApplicationObject();
}

void CCommandBar::Delete() {
  if (settings.builtIn || m_popup != nullptr) {
    throw CModelError(E_FAIL, "Only bars that were added can be deleted.");
  }
  m_owner->Remove(*this);
}

CModelPtr<CCommandBarControl> CCommandBar::FindControl(const CArguments& arguments) const {
  std::vector<CModelPtr<CCommandBarControl>> found;
  if (m_owner->FindsControls()) Collect(ControlQuery::FromArguments(arguments, false), found);
  return found.empty() ? CModelPtr<CCommandBarControl>() : found.front();
}

void CCommandBar::SetName(const CArguments& arguments) {
  if (settings.builtIn || m_popup != nullptr) throw CModelError(E_FAIL);
  const std::wstring name = arguments.Text(0);
  if (name.empty() || m_owner->FindBar(name) != nullptr) throw CModelError(E_INVALIDARG);
  settings.name = name;
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

const CMemberTable& CCommandBar::Members() {
  using Self = CCommandBar;
  using S = BarSettings;
  constexpr long kMost = 0x7FFF;
  static const CMemberTable table(
      "CommandBar", L"CommandBar", nullptr,
      {Get<&Self::Application>(L"Application"),
       Get<&Self::Read<&S::builtIn>>(L"BuiltIn"),
       Get<&Self::Controls>(L"Controls"),
       Method<&Self::Delete>(L"Delete"),
       Get<&Self::Read<&S::enabled>>(L"Enabled"),
       Put<&Self::SetEnabled>(L"Enabled"),
       Method<&Self::FindControl>(L"FindControl", 0),
       Get<&Self::Height>(L"Height"),
       Put<&Self::Write<&S::height, 0, kMost>>(L"Height"),
       Get<&Self::Read<&S::left>>(L"Left"),
       Put<&Self::Write<&S::left, LONG_MIN, LONG_MAX>>(L"Left"),
       Get<&Self::Name>(L"Name"),
       Put<&Self::SetName>(L"Name"),
       Get<&Self::Name>(L"NameLocal"),
       Put<&Self::SetName>(L"NameLocal"),
       Get<&Self::Read<&S::position>>(L"Position"),
       Put<&Self::Write<&S::position, mso::kLeft, mso::kFloating>>(L"Position"),
       Get<&Self::Read<&S::row>>(L"RowIndex"),
       Put<&Self::Write<&S::row, -1, kMost>>(L"RowIndex"),
       Get<&Self::Read<&S::protection>>(L"Protection"),
       Put<&Self::Write<&S::protection, 0, 0x7F>>(L"Protection"),
       Get<&Self::Read<&S::top>>(L"Top"),
       Put<&Self::Write<&S::top, LONG_MIN, LONG_MAX>>(L"Top"),
       Get<&Self::Read<&S::type>>(L"Type"),
       Get<&Self::Read<&S::visible>>(L"Visible"),
       Put<&Self::SetVisible>(L"Visible"),
       Get<&Self::Width>(L"Width"),
       Put<&Self::Write<&S::width, 0, kMost>>(L"Width")});
  return table;
}

}  // namespace quor::workbench
