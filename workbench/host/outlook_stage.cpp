#include "workbench/host/outlook_stage.h"

#include "workbench/office/window_objects.h"
#include "workbench/scenario/scenario_error.h"

namespace quor::workbench {

void COutlookStage::RefuseStore(const std::string& name, Refusal refusal, uint32_t status) {
  for (const auto& store : m_outlook.Session().Mailbox().Stores()) {
    if (store->top->name != WideFromUtf8(name)) continue;
    store->refusal = static_cast<Store::Refusal>(refusal);
    store->refusalCode = static_cast<HRESULT>(status);
    return;
  }
  throw CScenarioError("no store is called " + name);
}

void COutlookStage::ShowMainWindow(bool shown) {
  CSession& session = m_outlook.Session();
  const CModelPtr<CExplorer> explorer = session.ActiveExplorer();
  if (!explorer) throw CScenarioError("no main window is open");
  ShowWindow(session.Face().WindowOf(*explorer), shown ? SW_SHOW : SW_HIDE);
}

void COutlookStage::SetEntryIds(const EntryIds& style) {
  constexpr size_t kShort = 48;
  constexpr size_t kLong = 140;
  m_outlook.Session().Mailbox().SetEntryIdStyle({.newOnMove = style.isChanging,
                                                 .lowerCase = style.isLower,
                                                 .digits = style.isLong ? kLong : kShort});
}

void COutlookStage::FailMember(const std::string& member, const FailingCalls& calls) {
  Fault fault;
  fault.member = member.empty() ? "*" : member;
  fault.first = calls.firstCall;
  fault.last = calls.lastCall;
  fault.code = static_cast<HRESULT>(calls.status);
  m_outlook.Model().AddFault(fault);
}

void COutlookStage::DuringMember(const std::string& member, unsigned nth,
                                 std::function<void()> action) {
  Hook hook;
  hook.member = member == "any" ? "*" : member;
  hook.nth = nth;
  hook.action = std::move(action);
  m_outlook.Model().AddHook(std::move(hook));
}

std::vector<std::string> COutlookStage::Held() {
  std::vector<std::string> held = m_outlook.Held();
  for (const std::string& sink : m_outlook.Sinks())
    held.push_back("sink on " + sink);
  const std::vector<std::string>& misuses = m_outlook.Model().Misuses();
  held.insert(held.end(), misuses.begin(), misuses.end());
  return held;
}

}  // namespace quor::workbench
