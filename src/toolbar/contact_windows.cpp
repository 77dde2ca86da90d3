#include "toolbar/contact_windows.h"

#include <algorithm>
#include <utility>

#include "com/com_boundary.h"
#include "toolbar/shown_contact.h"
#include "toolbar/telephone_bar.h"

namespace quor {
namespace {

constexpr int32_t kFirstInspectorRibbonVersion = 12;

}  // namespace

CContactWindows::CContactWindows(const IFaceSource& source, IToolbarActions& actions,
                                 IContactRibbonDisplay& display, CPictureLoader& pictures,
                                 ToolBarRecord& place, IEventOwner& owner,
                                 CDiagnosticLog& log) noexcept
    : m_source(source),
      m_actions(actions),
      m_display(display),
      m_place(place),
      m_owner(owner),
      m_log(log),
      m_pictures(pictures) {}

void CContactWindows::Open(const CInspector& inspector, int32_t appVersion) noexcept {
  GuardCall(m_log, "contact window", [&] {
    if (!ContactOf(inspector) || m_owner.IsShuttingDown()) return;
    const unsigned number = appVersion < kFirstInspectorRibbonVersion ? ++m_lastNumber : 0;
    m_withPictures = appVersion >= kFirstPictureVersion;
    if (const WindowPtr window = OpenWindow(inspector, number)) window->MakeBar();
  });
}

CContactWindows::WindowPtr CContactWindows::OpenWindow(const CInspector& inspector,
                                                       unsigned number) {
  auto window = std::make_shared<CContactWindow>(
      *this, m_actions, m_withPictures ? &m_pictures : nullptr, m_place, m_owner, m_log, number);
  m_windows.push_back(window);
  if (window->Follow(inspector)) return window;
  OnClosed(*window);
  return nullptr;
}

CContactWindows::WindowPtr CContactWindows::FindWindow(IDispatch* inspector) const {
  const auto windows = m_windows;
  const auto found = std::ranges::find_if(
      windows, [inspector](const WindowPtr& window) { return window->IsOf(inspector); });
  return found == windows.end() ? nullptr : *found;
}

CContactWindows::WindowPtr CContactWindows::WindowOf(IDispatch* inspector) {
  if (WindowPtr window = FindWindow(inspector)) return window;
  const auto opened = QueryObject<CInspector>(inspector);
  return ContactOf(opened) ? OpenWindow(opened, 0) : nullptr;
}

void CContactWindows::OnClosed(const CContactWindow& window) noexcept {
  std::erase_if(m_windows, [&window](const auto& open) { return open.get() == &window; });
}

void CContactWindows::Redraw() noexcept {
  ForEach([](CContactWindow& window) { window.Redraw(); });
}

void CContactWindows::DisableControls() noexcept {
  ForEach([](CContactWindow& window) { window.DisableControls(); });
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
}

// Iterates over a copy: windows may open or close during the calls.
template <typename Act>
void CContactWindows::ForEach(Act act) noexcept {
  GuardCall(m_log, "contact windows", [&] {
    const auto windows = m_windows;
    for (const auto& window : windows)
      act(*window);
  });
}

void CContactWindows::RequestRefresh() noexcept {
  if (m_refreshPosted) return;
  m_refreshPosted = m_display.PostRefresh();
  if (!m_refreshPosted) m_log.Write("CAddin::RequestRefresh post failed\n");
}

void CContactWindows::Refresh() noexcept {
  m_refreshPosted = false;
  bool ribbons = false;
  ForEach([&ribbons](CContactWindow& window) { ribbons |= window.Refresh(); });
  if (ribbons) m_display.InvalidateContactRibbons();
}

std::wstring CContactWindows::NumberOf(IDispatch* inspector, int telNumberType) {
  const CContactItem contact = ContactOf(QueryObject<CInspector>(inspector));
  return contact ? contact.TelephoneNumber(telNumberType) : std::wstring();
}

ContactNumber CContactWindows::PickedNumber(IDispatch* inspector) {
  const WindowPtr window = FindWindow(inspector);
  return window ? window->Picked() : ContactNumber();
}

void CContactWindows::PickNumber(IDispatch* inspector, int telNumberType) {
  if (const WindowPtr window = WindowOf(inspector)) window->PickNumber(telNumberType);
}

bool CContactWindows::IsContactWindow(IDispatch* window) {
  return static_cast<bool>(QueryObject<CInspector>(window));
}

void CContactWindows::ClickLine(IDispatch* inspector, uint8_t lineType) {
  // Answering and hanging up need no number.
  if (!m_actions.DialsAtOnce(lineType)) return m_actions.ClickLine(lineType);
  WindowPtr window;
  GuardCall(m_log, "contact window", [&] { window = WindowOf(inspector); });
  if (window) return window->ClickLine(lineType);
  m_actions.DialOnLine(lineType, {});
}

}  // namespace quor
