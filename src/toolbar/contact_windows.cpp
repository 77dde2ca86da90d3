#include "toolbar/contact_windows.h"

#include <utility>

#include "com/com_boundary.h"
#include "toolbar/contact_numbers.h"

namespace quor {
namespace {

constexpr int32_t kFirstInspectorRibbonVersion = 12;

}  // namespace

CContactWindows::CContactWindows(const IFaceSource& source, IContactWindowActions& actions,
                                 const CResourceLoader& resources, ToolBarRecord& place,
                                 IEventOwner& owner, CDiagnosticLog& log) noexcept
    : m_source(source),
      m_actions(actions),
      m_place(place),
      m_owner(owner),
      m_log(log),
      m_pictures(resources) {}

void CContactWindows::Open(const CInspector& inspector, int32_t appVersion) noexcept {
  if (appVersion >= kFirstInspectorRibbonVersion) return;
  GuardCall(m_log, "contact window", [&] {
    const bool shown = static_cast<bool>(ContactOf(inspector));
    if (shown && !m_owner.IsShuttingDown()) OpenWindow(inspector);
  });
}

void CContactWindows::OpenWindow(const CInspector& inspector) {
  IContactWindowHost& host = *this;
  const auto window = std::make_shared<CContactWindow>(host, m_actions, m_pictures, m_place,
                                                       m_owner, m_log, ++m_lastNumber);
  m_windows.push_back(window);
  if (window->Follow(inspector)) {
    window->MakeBar();
  } else {
    OnClosed(*window);
  }
}

void CContactWindows::OnClosed(const CContactWindow& window) noexcept {
  std::erase_if(m_windows, [&window](const auto& open) { return open.get() == &window; });
}

void CContactWindows::Redraw() noexcept {
  ForEach([](CContactWindow& window) { window.Redraw(); });
}

void CContactWindows::Disable() noexcept {
  ForEach([](CContactWindow& window) { window.Disable(); });
}

void CContactWindows::SavePlace() noexcept {
  if (m_windows.empty()) return;
  const auto window = m_windows.back();
  window->SavePlace();
}

void CContactWindows::CloseAll() noexcept {
  const auto windows = std::exchange(m_windows, {});
  for (const auto& window : windows)
    window->Close();
  m_pictures.Release();
}

// Over a copy: any window may open or close meanwhile.
template <typename Act>
void CContactWindows::ForEach(Act act) noexcept {
  GuardCall(m_log, "contact windows", [&] {
    const auto windows = m_windows;
    for (const auto& window : windows)
      act(*window);
  });
}

std::wstring CContactWindows::ContactNumber(IDispatch* inspector, int telNumberType) {
  const CContactItem contact = ContactOf(QueryObject<CInspector>(inspector));
  return contact ? contact.TelephoneNumber(telNumberType) : std::wstring();
}

void CContactWindows::DialContact(IDispatch* inspector, int telNumberType) {
  const std::wstring number = ContactNumber(inspector, telNumberType);
  if (!number.empty()) m_actions.DialNumber(number);
}

void CContactWindows::ClickContactLine(IDispatch* inspector, uint8_t lineType) {
  std::wstring firstNumber;
  // The button must work without the contact too: a call is answered and ended with it.
  GuardCall(m_log, "numbers of the contact", [&] {
    const CContactItem contact = ContactOf(QueryObject<CInspector>(inspector));
    if (!contact) return;
    const auto numbers = NumbersOf(contact, m_log);
    if (!numbers.empty()) firstNumber = numbers.front().number;
  });
  m_actions.ClickContactLine(lineType, firstNumber);
}

}  // namespace quor
