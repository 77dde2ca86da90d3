#include "workbench/ribbon/ribbon_objects.h"

#include <utility>

#include "workbench/ribbon/ribbon_host.h"

namespace quor::workbench {

CRibbonUi::CRibbonUi(CModel& model, CRibbonHost& host)
    : CAutomation(model, Members()), m_host(&host) {}

CRibbonHost& CRibbonUi::Host() const {
  if (m_host == nullptr) throw CModelError(E_FAIL, "The ribbon is no longer loaded.");
  return *m_host;
}

const CMemberTable& CRibbonUi::Members() {
  using Self = CRibbonUi;
  static const CMemberTable table(
      "RibbonUI", L"IRibbonUI", nullptr,
      {Method(L"Invalidate", [](Self& self) { self.Host().InvalidateAll(); }),
       Method(L"InvalidateControl", [](Self& self, const CArguments& arguments) {
         self.Host().InvalidateOne(arguments.Text(0));
       })});
  return table;
}

CRibbonControl::CRibbonControl(CModel& model, std::wstring id, std::wstring tag,
                               CModelPtr<CAutomation> context)
    : CAutomation(model, Members()),
      m_id(std::move(id)),
      m_tag(std::move(tag)),
      m_context(std::move(context)) {}

const CMemberTable& CRibbonControl::Members() {
  using Self = CRibbonControl;
  static const CMemberTable table("RibbonControl", L"IRibbonControl", nullptr,
                                  {Get(L"Id", [](Self& self) { return self.m_id; }),
                                   Get(L"Context", [](Self& self) { return self.m_context; }),
                                   Get(L"Tag", [](Self& self) { return self.m_tag; })});
  return table;
}

}  // namespace quor::workbench
