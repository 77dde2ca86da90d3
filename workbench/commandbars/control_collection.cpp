#include "workbench/commandbars/control_collection.h"

namespace quor::workbench {

CCommandBarControls::CCommandBarControls(CModel& model, CModelPtr<CCommandBar> bar)
    : CAutomation(model, Members()), m_bar(std::move(bar)) {}

CCommandBarControls::CCommandBarControls(CModel& model,
                                         std::vector<CModelPtr<CCommandBarControl>> found)
    : CAutomation(model, Members()), m_found(std::move(found)) {}

void CCommandBarControls::OnGone() noexcept {
  m_bar = {};
  m_found.clear();
}

std::string CCommandBarControls::ObjectName() const {
  return m_bar ? m_bar->ObjectName() : std::string("found");
}

const std::vector<CModelPtr<CCommandBarControl>>& CCommandBarControls::Content() const {
  return m_bar ? m_bar->LiveControls() : m_found;
}

CModelPtr<CCommandBarControl> CCommandBarControls::Add(const CArguments& arguments) {
  if (!m_bar) throw CModelError(E_FAIL, "Controls that were found take no new ones.");
  NewControl control;
  control.type = arguments.LongOr(0, mso::kButton);
  control.id = arguments.LongOr(1, mso::kCustomControl);
  control.parameter = arguments.TextOr(2, L"");
  if (!arguments.IsMissing(3)) control.before = arguments.Long(3);
  control.temporary = arguments.BoolOr(4, false);
  return m_bar->Add(control);
}

CModelPtr<CCommandBarControl> CCommandBarControls::Item(const CArguments& arguments) const {
  const auto& controls = Content();
  if (arguments.IsText(0)) {
    const std::wstring caption = arguments.Text(0);
    for (const auto& control : controls) {
      if (PlainCaption(control->settings.caption) == PlainCaption(caption)) return control;
    }
    throw CModelError(E_INVALIDARG, "There is no control with that caption.");
  }
  const long index = arguments.Long(0);
  if (index < 1 || static_cast<size_t>(index) > controls.size()) throw CModelError(E_INVALIDARG);
  return controls[static_cast<size_t>(index) - 1];
}

const CMemberTable& CCommandBarControls::Members() {
  using Self = CCommandBarControls;
  static const CMemberTable table("CommandBarControls", L"CommandBarControls", nullptr,
                                  {Method<&Self::Add>(L"Add", 0), Get<&Self::Count>(L"Count"),
                                   Get<&Self::Item>(L"Item"), Get<&Self::Parent>(L"Parent")});
  return table;
}

}  // namespace quor::workbench
