#include "workbench/commandbars/command_bar.h"

#include <algorithm>

#include "workbench/commandbars/button.h"
#include "workbench/commandbars/combo_box.h"
#include "workbench/commandbars/command_bars.h"
#include "workbench/commandbars/control_collection.h"
#include "workbench/commandbars/popup.h"

namespace quor::workbench {
namespace {

constexpr DISPID kBuiltIn = 0x60040000;
constexpr DISPID kEnabled = 0x60040005;
constexpr DISPID kHeight = 0x60040008;
constexpr DISPID kLeft = 0x6004000C;
constexpr DISPID kPosition = 0x60040013;
constexpr DISPID kRowIndex = 0x60040015;
constexpr DISPID kProtection = 0x60040017;
constexpr DISPID kTop = 0x6004001B;
constexpr DISPID kType = 0x6004001D;
constexpr DISPID kVisible = 0x6004001E;
constexpr DISPID kWidth = 0x60040020;

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
  RequireAlive();
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
  RequireAlive();
  return m_owner->ApplicationObject();
}

void CCommandBar::Delete() {
  RequireAlive();
  if (settings.builtIn || m_popup != nullptr) {
    throw CModelError(E_FAIL, "Only bars that were added can be deleted.");
  }
  m_owner->Remove(*this);
}

CModelPtr<CCommandBarControl> CCommandBar::FindControl(const CArguments& arguments) const {
  RequireAlive();
  std::vector<CModelPtr<CCommandBarControl>> found;
  if (m_owner->FindsControls()) Collect(ControlQuery::FromArguments(arguments, false), found);
  return found.empty() ? CModelPtr<CCommandBarControl>() : found.front();
}

std::wstring CCommandBar::NameText() const {
  RequireAlive();
  return Name();
}

void CCommandBar::SetName(const CArguments& arguments) {
  RequireAlive();
  if (settings.builtIn || m_popup != nullptr) throw CModelError(E_FAIL);
  const std::wstring name = arguments.Text(0);
  if (name.empty() || m_owner->FindBar(name) != nullptr) throw CModelError(E_INVALIDARG);
  settings.name = name;
}

CValue CCommandBar::ReadSetting(const CArguments& arguments) const {
  RequireAlive();
  switch (arguments.Member()) {
    case kBuiltIn:
      return settings.builtIn;
    case kEnabled:
      return settings.enabled;
    case kHeight:
      return settings.height != 0 ? settings.height : kUsualHeight;
    case kLeft:
      return settings.left;
    case kPosition:
      return settings.position;
    case kRowIndex:
      return settings.row;
    case kProtection:
      return settings.protection;
    case kTop:
      return settings.top;
    case kType:
      return settings.type;
    case kVisible:
      return settings.visible;
    case kWidth:
      return Width();
    default:
      throw CModelError(E_NOTIMPL);
  }
}

void CCommandBar::SetVisible(bool visible) {
  if (visible && !settings.enabled) throw CModelError(E_FAIL, "The bar is not enabled.");
  settings.visible = visible;
}

void CCommandBar::WriteSetting(const CArguments& arguments) {
  RequireAlive();
  const auto inRange = [&arguments](long least, long most) {
    const long value = arguments.Long(0);
    if (value < least || value > most) throw CModelError(E_INVALIDARG);
    return value;
  };
  switch (arguments.Member()) {
    case kEnabled:
      settings.enabled = arguments.Bool(0);
      if (!settings.enabled) settings.visible = false;
      break;
    case kHeight:
      settings.height = inRange(0, 0x7FFF);
      break;
    case kLeft:
      settings.left = arguments.Long(0);
      break;
    case kPosition:
      settings.position = inRange(mso::kLeft, mso::kFloating);
      break;
    case kRowIndex:
      settings.row = inRange(-1, 0x7FFF);
      break;
    case kProtection:
      settings.protection = inRange(0, 0x7F);
      break;
    case kTop:
      settings.top = arguments.Long(0);
      break;
    case kVisible:
      SetVisible(arguments.Bool(0));
      break;
    case kWidth:
      settings.width = inRange(0, 0x7FFF);
      break;
    default:
      throw CModelError(E_NOTIMPL);
  }
  Changed();
}

const CMemberTable& CCommandBar::Members() {
  using Self = CCommandBar;
  constexpr auto kRead = &Self::ReadSetting;
  constexpr auto kWrite = &Self::WriteSetting;
  static const CMemberTable table("CommandBar", L"CommandBar", nullptr,
                                  {Get<&Self::Application>(L"Application"),
                                   Get<kRead>(L"BuiltIn"),
                                   Get<&Self::Controls>(L"Controls"),
                                   Method<&Self::Delete>(L"Delete"),
                                   Get<kRead>(L"Enabled"),
                                   Put<kWrite>(L"Enabled"),
                                   Method<&Self::FindControl>(L"FindControl", 0),
                                   Get<kRead>(L"Height"),
                                   Put<kWrite>(L"Height"),
                                   Get<kRead>(L"Left"),
                                   Put<kWrite>(L"Left"),
                                   Get<&Self::NameText>(L"Name"),
                                   Put<&Self::SetName>(L"Name"),
                                   Get<&Self::NameText>(L"NameLocal"),
                                   Put<&Self::SetName>(L"NameLocal"),
                                   Get<kRead>(L"Position"),
                                   Put<kWrite>(L"Position"),
                                   Get<kRead>(L"RowIndex"),
                                   Put<kWrite>(L"RowIndex"),
                                   Get<kRead>(L"Protection"),
                                   Put<kWrite>(L"Protection"),
                                   Get<kRead>(L"Top"),
                                   Put<kWrite>(L"Top"),
                                   Get<kRead>(L"Type"),
                                   Get<kRead>(L"Visible"),
                                   Put<kWrite>(L"Visible"),
                                   Get<kRead>(L"Width"),
                                   Put<kWrite>(L"Width")});
  return table;
}

}  // namespace quor::workbench
