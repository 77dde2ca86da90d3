#include "workbench/commandbars/control.h"

#include "workbench/commandbars/command_bar.h"
#include "workbench/commandbars/command_bars.h"
#include "workbench/commandbars/popup.h"

namespace quor::workbench {
namespace {

constexpr DISPID kBeginGroup = 0x60040000;
constexpr DISPID kBuiltIn = 0x60040002;
constexpr DISPID kCaption = 0x60040003;
constexpr DISPID kDescriptionText = 0x60040008;
constexpr DISPID kEnabled = 0x6004000A;
constexpr DISPID kHeight = 0x6004000D;
constexpr DISPID kId = 0x60040013;
constexpr DISPID kInstanceId = 0x60040015;
constexpr DISPID kOnAction = 0x6004001A;
constexpr DISPID kParameter = 0x6004001D;
constexpr DISPID kPriority = 0x6004001F;
constexpr DISPID kTag = 0x60040023;
constexpr DISPID kTooltipText = 0x60040025;
constexpr DISPID kType = 0x60040028;
constexpr DISPID kVisible = 0x60040029;
constexpr DISPID kWidth = 0x6004002B;

constexpr long kUsualHeight = 22;  // of a control on a toolbar, in pixels

bool IsGiven(const CArguments& arguments, UINT index) {
  return !arguments.IsMissing(index) && V_VT(&arguments.Variant(index)) != VT_EMPTY;
}

}  // namespace

ControlQuery ControlQuery::FromArguments(const CArguments& arguments, bool recursiveByDefault) {
  ControlQuery query;
  if (IsGiven(arguments, 0)) query.type = arguments.Long(0);
  if (IsGiven(arguments, 1)) query.id = arguments.Long(1);
  if (IsGiven(arguments, 2)) query.tag = arguments.Text(2);
  if (IsGiven(arguments, 3)) query.visibleOnly = arguments.Bool(3);
  query.recursive = IsGiven(arguments, 4) ? arguments.Bool(4) : recursiveByDefault;
  return query;
}

CCommandBarControl::CCommandBarControl(CModel& model, const CMemberTable& members,
                                       std::shared_ptr<CControlRegistry> registry, CCommandBar& bar,
                                       long type)
    : CEventSource(model, members),
      m_registry(std::move(registry)),
      m_bar(&bar),
      m_type(type),
      m_instance(m_registry->NextInstance()) {
  m_registry->Add(*this);
}

std::string CCommandBarControl::ObjectName() const {
  return Utf8FromWide(settings.tag.empty() ? settings.caption : settings.tag);
}

void CCommandBarControl::Detach() noexcept {
  m_bar = nullptr;
  m_registry->Remove(*this);
}

void CCommandBarControl::OnGone() noexcept {
  m_registry->Remove(*this);
  CEventSource::OnGone();
}

void CCommandBarControl::RequireAlive() const {
  if (IsDeleted()) throw CModelError(E_FAIL, "The control has been deleted.");
}

bool CCommandBarControl::Matches(const ControlQuery& query) const {
  return (!query.type.has_value() || *query.type == m_type) &&
         (!query.id.has_value() || *query.id == settings.id) &&
         (!query.tag.has_value() || *query.tag == settings.tag) &&
         (!query.visibleOnly || settings.visible);
}

const char* CCommandBarControl::WhyOutOfReach() const noexcept {
  if (IsDeleted()) return "is deleted";
  if (!settings.visible) return "is hidden";
  if (!settings.enabled) return "is disabled";
  const CCommandBarControl* popup = m_bar->OwnerPopup();
  if (popup != nullptr) return popup->WhyOutOfReach();
  return m_bar->IsShown() ? nullptr : "is on a hidden bar";
}

ControlFace CCommandBarControl::Face() const {
  ControlFace face;
  face.handle = m_instance;
  face.id = settings.tag;
  face.caption = settings.caption;
  face.screentip = settings.tooltip;
  face.enabled = settings.enabled;
  face.visible = settings.visible;
  face.custom = settings.id == mso::kCustomControl;
  face.beginsGroup = settings.beginGroup;
  face.width = static_cast<int>(settings.width);
  return face;
}

std::vector<CModelPtr<CCommandBarControl>> CCommandBarControl::Twins() {
  std::vector<CModelPtr<CCommandBarControl>> twins;
  for (CCommandBarControl* control : m_registry->Controls()) {
    if (control->m_type == m_type && control->settings.id == settings.id &&
        control->settings.tag == settings.tag) {
      twins.emplace_back(control);
    }
  }
  return twins;
}

IDispatch* CCommandBarControl::Application() const {
  RequireAlive();
  return m_bar->Owner()->ApplicationObject();
}

IDispatch* CCommandBarControl::Parent() const {
  RequireAlive();
  return m_bar;
}

void CCommandBarControl::Delete() {
  RequireAlive();
  m_bar->Remove(*this);
}

long CCommandBarControl::Index() const {
  RequireAlive();
  return m_bar->IndexOf(*this);
}

// Only a window that has drawn the control knows its position.
long CCommandBarControl::Position() const {
  RequireAlive();
  return 0;
}

CValue CCommandBarControl::ReadSetting(const CArguments& arguments) const {
  RequireAlive();
  const ControlSettings& s = settings;
  switch (arguments.Member()) {
    case kBeginGroup:
      return s.beginGroup;
    case kBuiltIn:
      return s.id != mso::kCustomControl;
    case kCaption:
      return s.caption;
    case kDescriptionText:
      return s.description;
    case kEnabled:
      return s.enabled;
    case kHeight:
      return s.height != 0 ? s.height : kUsualHeight;
    case kId:
      return s.id;
    case kInstanceId:
      return m_instance;
    case kOnAction:
      return s.onAction;
    case kParameter:
      return s.parameter;
    case kPriority:
      return s.priority;
    case kTag:
      return s.tag;
    case kTooltipText:
      return s.tooltip.empty() ? s.caption : s.tooltip;
    case kType:
      return m_type;
    case kVisible:
      return s.visible;
    case kWidth:
      return s.width != 0 ? s.width : CCommandBar::UsualWidth(Face());
    default:
      throw CModelError(E_NOTIMPL);
  }
}

void CCommandBarControl::WriteSetting(const CArguments& arguments) {
  RequireAlive();
  ControlSettings& s = settings;
  const auto size = [&arguments] {
    const long value = arguments.Long(0);
    if (value < 0) throw CModelError(E_INVALIDARG);
    return value;
  };
  switch (arguments.Member()) {
    case kBeginGroup:
      s.beginGroup = arguments.Bool(0);
      break;
    case kCaption:
      s.caption = arguments.Text(0);
      break;
    case kDescriptionText:
      s.description = arguments.Text(0);
      break;
    case kEnabled:
      s.enabled = arguments.Bool(0);
      break;
    case kHeight:
      s.height = size();
      break;
    case kOnAction:
      s.onAction = arguments.Text(0);
      break;
    case kParameter:
      s.parameter = arguments.Text(0);
      break;
    case kPriority:
      s.priority = size();
      break;
    case kTag:
      s.tag = arguments.Text(0);
      break;
    case kTooltipText:
      s.tooltip = arguments.Text(0);
      break;
    case kVisible:
      s.visible = arguments.Bool(0);
      break;
    case kWidth:
      s.width = size();
      break;
    default:
      throw CModelError(E_NOTIMPL);
  }
  m_bar->Changed();
}

const CMemberTable& CCommandBarControl::ControlMembers() {
  using Self = CCommandBarControl;
  constexpr auto kRead = &Self::ReadSetting;
  constexpr auto kWrite = &Self::WriteSetting;
  static const CMemberTable table("CommandBarControl", L"CommandBarControl", nullptr,
                                  {Get<&Self::Application>(L"Application"),
                                   Get<kRead>(L"BeginGroup"),
                                   Put<kWrite>(L"BeginGroup"),
                                   Get<kRead>(L"BuiltIn"),
                                   Get<kRead>(L"Caption"),
                                   Put<kWrite>(L"Caption"),
                                   Method<&Self::Delete>(L"Delete", 0),
                                   Get<kRead>(L"DescriptionText"),
                                   Put<kWrite>(L"DescriptionText"),
                                   Get<kRead>(L"Enabled"),
                                   Put<kWrite>(L"Enabled"),
                                   Method<&Self::Activate>(L"Execute"),
                                   Get<kRead>(L"Height"),
                                   Put<kWrite>(L"Height"),
                                   Get<kRead>(L"Id"),
                                   Get<&Self::Index>(L"Index"),
                                   Get<kRead>(L"InstanceId"),
                                   Get<&Self::Position>(L"Left"),
                                   Get<kRead>(L"OnAction"),
                                   Put<kWrite>(L"OnAction"),
                                   Get<&Self::Parent>(L"Parent"),
                                   Get<kRead>(L"Parameter"),
                                   Put<kWrite>(L"Parameter"),
                                   Get<kRead>(L"Priority"),
                                   Put<kWrite>(L"Priority"),
                                   Method<&Self::RequireAlive>(L"SetFocus"),
                                   Get<kRead>(L"Tag"),
                                   Put<kWrite>(L"Tag"),
                                   Get<kRead>(L"TooltipText"),
                                   Put<kWrite>(L"TooltipText"),
                                   Get<&Self::Position>(L"Top"),
                                   Get<kRead>(L"Type"),
                                   Get<kRead>(L"Visible"),
                                   Put<kWrite>(L"Visible"),
                                   Get<kRead>(L"Width"),
                                   Put<kWrite>(L"Width")});
  return table;
}

}  // namespace quor::workbench
