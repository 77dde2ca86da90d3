#include "workbench/commandbars/control_collection.h"

namespace quor::workbench {

CCommandBarControls::CCommandBarControls(CModel& model, CModelPtr<CCommandBar> bar)
    : CAutomation(model, Members()), m_bar(std::move(bar)) {}

CModelPtr<CCommandBarControl> CCommandBarControls::Add(const CArguments& arguments) {
  std::optional<long> before;
  if (!arguments.IsMissing(3)) before = arguments.Long(3);
  return m_bar->Add(arguments.LongOr(0, mso::kButton), before);
}

CModelPtr<CCommandBarControl> CCommandBarControls::Item(const CArguments& arguments) {
  const auto& controls = m_bar->LiveControls();
  const long index = arguments.Long(0);
  if (index < 1 || static_cast<size_t>(index) > controls.size()) throw CModelError(E_INVALIDARG);
  return controls[static_cast<size_t>(index) - 1];
}

const CMemberTable& CCommandBarControls::Members() {
  using Self = CCommandBarControls;
  static const CMemberTable table(
      "CommandBarControls", L"CommandBarControls", nullptr,
      {Method<&Self::Add>(L"Add", 0),
       Get(L"Count", [](Self& self) { return self.m_bar->LiveControls().size(); }),
       Get<&Self::Item>(L"Item")});
  return table;
}

}  // namespace quor::workbench
