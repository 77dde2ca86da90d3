#include "toolbar/contact_window.h"

#include <utility>

#include "com/com_boundary.h"
#include "resources/resource_ids.h"
#include "telephone/control_state.h"

namespace quor {

CContactWindow::CContactWindow(IContactWindowHost& host, IContactWindowActions& actions,
                               CPictureLoader& pictures, ToolBarRecord& place, IEventOwner& owner,
                               CDiagnosticLog& log, unsigned number) noexcept
    : m_host(host),
      m_actions(actions),
      m_pictures(pictures),
      m_place(place),
      m_owner(owner),
      m_log(log),
      m_number(number),
      m_events(owner, log, "contact window event") {}

bool CContactWindow::Follow(const CInspector& inspector) {
  m_inspector = inspector;
  const HRESULT advised = m_events.Advise(inspector.Get(), kInspectorEvents,
                                          [weak = weak_from_this()](DISPID event, const auto&) {
                                            if (const auto window = weak.lock())
                                              window->OnEvent(event);
                                          });
  if (FAILED(advised)) {
    m_log.Write("Failed advising to InspectorEvents\n");
    m_inspector.Release();
  }
  // Closed while it was being advised.
  if (!m_inspector) m_events.Unadvise();
  return m_events.IsAdvised();
}

void CContactWindow::MakeBar() noexcept {
  if (m_bar || m_makingBar) return;
  m_makingBar = true;
  GuardCall(m_log, "command bar of the contact", [this] {
    const CInspector inspector = m_inspector;
    if (!inspector) return;
    const CCommandBars bars(inspector.CommandBars());
    const std::shared_ptr<IContactBarActions> self(shared_from_this(), this);
    const auto bar = std::make_shared<CContactBar>(bars, m_host.Faces().Text(IDS_PRODUCT_NAME),
                                                   m_number, m_pictures, self, m_owner, m_log);
    bar->Place(m_place);
    // Otherwise the window closed meanwhile, and the bar goes again.
    if (m_inspector) m_bar = bar;
  });
  m_makingBar = false;
  Draw();
}

void CContactWindow::OnEvent(DISPID event) {
  switch (event) {
    case kEventActivate:
      return m_bar ? Draw() : MakeBar();
    case kEventClose:
      m_log.Write("CAddin::OnCloseInspector\n");
      Close();
      return m_host.OnClosed(*this);
    default:
      return;
  }
}

ContactBarFaces CContactWindow::Faces() const {
  // Reading may change the telephone's state: the contact first.
  const CInspector inspector = m_inspector;
  std::vector<ContactNumber> numbers;
  GuardCall(m_log, "numbers of the contact", [&] {
    if (const CContactItem contact = ContactOf(inspector)) numbers = NumbersOf(contact, m_log);
  });
  const CControlFaces faces = m_host.Faces();
  // Only a ringing line is drawn with its answer button.
  const bool ringing = faces.IsRinging();
  ContactBarFaces shown;
  const auto face = [&](int control) -> ItemFace {
    return {faces.Caption(control, ringing), m_connected && faces.IsEnabled(control, ringing),
            true};
  };
  // As the dial box: whoever may dial may dial a contact.
  shown.menu = face(kDialBoxControl);
  if (numbers.empty()) shown.menu.enabled = false;
  shown.lines = {face(kLine1Control), face(kLine2Control)};
  for (const ContactNumber& number : numbers) {
    shown.numbers[static_cast<size_t>(number.telNumberType - 1)] =
        faces.ContactNumber(number.telNumberType, number.number);
  }
  return shown;
}

void CContactWindow::Draw() noexcept {
  const auto bar = m_bar;
  if (!bar) return;
  m_redraw.Run(
      [&] { GuardCall(m_log, "redrawing the contact window", [&] { bar->Show(Faces()); }); });
}

void CContactWindow::Redraw() noexcept {
  m_connected = true;
  Draw();
}

void CContactWindow::Disable() noexcept {
  m_connected = false;
  Draw();
}

void CContactWindow::SavePlace() noexcept {
  const auto bar = m_bar;
  if (bar) bar->SavePlace(m_place);
}

void CContactWindow::Close() noexcept {
  // Forget first: every call out may come back here.
  const CInspector inspector = std::exchange(m_inspector, {});
  const auto bar = std::exchange(m_bar, nullptr);
  m_events.Unadvise();
  if (!bar) return;
  bar->SavePlace(m_place);
  bar->Remove();
}

void CContactWindow::DialContact(int telNumberType) {
  const CContactItem contact = ContactOf(m_inspector);
  if (!contact) return;
  const std::wstring number = contact.TelephoneNumber(telNumberType);
  if (!number.empty()) m_actions.DialNumber(number);
}

}  // namespace quor
