#include "workbench/commandbars/control.h"

#include "workbench/commandbars/command_bar.h"
#include "workbench/commandbars/command_bars.h"
#include "workbench/commandbars/popup.h"

namespace quor::workbench {
namespace {

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
  return m_bar->Owner()->ApplicationObject();
}

IDispatch* CCommandBarControl::Parent() const {
  return m_bar;
}

void CCommandBarControl::Delete() {
  m_bar->Remove(*this);
}

long CCommandBarControl::Index() const {
  return m_bar->IndexOf(*this);
}

long CCommandBarControl::Height() const {
  return settings.height != 0 ? settings.height : kUsualHeight;
}

long CCommandBarControl::Width() const {
  return settings.width != 0 ? settings.width : CCommandBar::UsualWidth(Face());
}

std::wstring CCommandBarControl::TooltipText() const {
  return settings.tooltip.empty() ? settings.caption : settings.tooltip;
}

void CCommandBarControl::Set(std::wstring& setting, const CArguments& arguments) {
  setting = arguments.Text(0);
  m_bar->Changed();
}

void CCommandBarControl::Set(bool& setting, const CArguments& arguments) {
  setting = arguments.Bool(0);
  m_bar->Changed();
}

void CCommandBarControl::Set(long& setting, const CArguments& arguments) {
  const long value = arguments.Long(0);
  if (value < 0) throw CModelError(E_INVALIDARG);
  setting = value;
  m_bar->Changed();
}

const CMemberTable& CCommandBarControl::ControlMembers() {
  using Self = CCommandBarControl;
  using S = ControlSettings;
  static const CMemberTable table("CommandBarControl", L"CommandBarControl", nullptr,
                                  {Get<&Self::Application>(L"Application"),
                                   Get<&Self::Read<&S::beginGroup>>(L"BeginGroup"),
                                   Put<&Self::Write<&S::beginGroup>>(L"BeginGroup"),
                                   Get<&Self::IsBuiltIn>(L"BuiltIn"),
                                   Get<&Self::Read<&S::caption>>(L"Caption"),
                                   Put<&Self::Write<&S::caption>>(L"Caption"),
                                   Method<&Self::Delete>(L"Delete", 0),
                                   Get<&Self::Read<&S::description>>(L"DescriptionText"),
                                   Put<&Self::Write<&S::description>>(L"DescriptionText"),
                                   Get<&Self::Read<&S::enabled>>(L"Enabled"),
                                   Put<&Self::Write<&S::enabled>>(L"Enabled"),
                                   Method<&Self::Activate>(L"Execute"),
                                   Get<&Self::Height>(L"Height"),
                                   Put<&Self::Write<&S::height>>(L"Height"),
                                   Get<&Self::Read<&S::id>>(L"Id"),
                                   Get<&Self::Index>(L"Index"),
                                   Get<&Self::InstanceId>(L"InstanceId"),
                                   Get<&Self::Position>(L"Left"),
                                   Get<&Self::Read<&S::onAction>>(L"OnAction"),
                                   Put<&Self::Write<&S::onAction>>(L"OnAction"),
                                   Get<&Self::Parent>(L"Parent"),
                                   Get<&Self::Read<&S::parameter>>(L"Parameter"),
                                   Put<&Self::Write<&S::parameter>>(L"Parameter"),
                                   Get<&Self::Read<&S::priority>>(L"Priority"),
                                   Put<&Self::Write<&S::priority>>(L"Priority"),
                                   Method<&Self::SetFocus>(L"SetFocus"),
                                   Get<&Self::Read<&S::tag>>(L"Tag"),
                                   Put<&Self::Write<&S::tag>>(L"Tag"),
                                   Get<&Self::TooltipText>(L"TooltipText"),
                                   Put<&Self::Write<&S::tooltip>>(L"TooltipText"),
                                   Get<&Self::Position>(L"Top"),
                                   Get<&Self::TypeNumber>(L"Type"),
                                   Get<&Self::Read<&S::visible>>(L"Visible"),
                                   Put<&Self::Write<&S::visible>>(L"Visible"),
                                   Get<&Self::Width>(L"Width"),
                                   Put<&Self::Write<&S::width>>(L"Width")});
  return table;
}

}  // namespace quor::workbench
