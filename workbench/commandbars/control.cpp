#include "workbench/commandbars/control.h"

#include "workbench/commandbars/command_bar.h"
#include "workbench/commandbars/command_bars.h"
#include "workbench/commandbars/popup.h"

namespace quor::workbench {

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

long CCommandBarControl::Width() const {
  return settings.width != 0 ? settings.width : CCommandBar::UsualWidth(Face());
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

template <auto setting>
Member CCommandBarControl::Setting(const wchar_t* name) {
  using Self = CCommandBarControl;
  return Property(
      name, [](Self& self) { return self.settings.*setting; },
      [](Self& self, const CArguments& arguments) { self.Set(self.settings.*setting, arguments); });
}

const CMemberTable& CCommandBarControl::ControlMembers() {
  using Self = CCommandBarControl;
  using S = ControlSettings;
  static const CMemberTable table(
      "CommandBarControl", L"CommandBarControl", nullptr,
      {Setting<&S::beginGroup>(L"BeginGroup"), Setting<&S::caption>(L"Caption"),
       Method(L"Delete", 0, [](Self& self) { self.m_bar->Remove(self); }),
       Setting<&S::enabled>(L"Enabled"), Get(L"Id", [](Self& self) { return self.settings.id; }),
       Get(L"Parent", [](Self& self) { return self.m_bar; }), Setting<&S::tag>(L"Tag"),
       Get(L"Type", [](Self& self) { return self.m_type; }), Setting<&S::visible>(L"Visible"),
       Property(
           L"Width", [](Self& self) { return self.Width(); },
           [](Self& self, const CArguments& arguments) {
             self.Set(self.settings.width, arguments);
           })});
  return table;
}

}  // namespace quor::workbench
