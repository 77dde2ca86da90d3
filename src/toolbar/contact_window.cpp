#include "toolbar/contact_window.h"

#include <utility>

#include "com/com_boundary.h"
#include "resources/resource_ids.h"
#include "telephone/control_rules.h"
#include "toolbar/contact_windows.h"
#include "toolbar/flag_scope.h"

namespace quor {

CContactWindow::CContactWindow(CContactWindows& windows, IToolbarActions& actions,
                               CPictureLoader* pictures, ToolBarRecord& place, IEventOwner& owner,
                               CDiagnosticLog& log, unsigned number) noexcept
    : m_windows(windows),
      m_actions(actions),
      m_pictures(pictures),
      m_place(place),
      m_owner(owner),
      m_log(log),
      m_number(number),
      m_events(owner, log, "contact window event"),
      m_contactEvents(owner, log, "contact event") {}

bool CContactWindow::Follow(const CInspector& inspector) {
  m_inspector = inspector;
  const HRESULT advised = m_events.Advise(inspector.Get(), kInspectorEvents,
                                          [weak = weak_from_this()](DISPID event, const auto&) {
                                            if (const auto window = weak.lock())
                                              window->OnWindowEvent(event);
                                          });
  if (FAILED(advised)) {
    m_log.Write("Failed advising to InspectorEvents\n");
    m_inspector.Release();
  }
  // The window closed while it was being advised.
  if (!m_inspector) m_events.Unadvise();
  FollowContact();
  NumbersChanged();
  return m_events.IsAdvised();
}

void CContactWindow::FollowContact() noexcept {
  m_following.Run([this] {
    GuardCall(m_log, "following the contact", [this] {
      const CInspector inspector = m_inspector;
      const CContactItem contact = ContactOf(inspector);
      if (!IsSameContact(contact, m_contact)) SwitchContact(contact);
    });
  });
}

void CContactWindow::SwitchContact(const CContactItem& contact) {
  Pick(0);
  m_contactEvents.Unadvise();
  if (!m_inspector) return;
  m_contact = contact;
  if (!contact) return;
  const HRESULT advised = m_contactEvents.Advise(
      contact.Get(), kItemEvents,
      [weak = weak_from_this()](DISPID event, const CEventArguments& arguments) {
        if (const auto window = weak.lock()) window->OnContactEvent(event, arguments);
      });
  // No failure if the window closed while it was being advised.
  if (FAILED(advised) && m_inspector) m_log.Write("Failed advising to ItemEvents\n");
}

void CContactWindow::MakeBar() noexcept {
  if (!HasBar() || m_bar || m_makingBar) return;
  GuardCall(m_log, "command bar of the contact", [this] {
    const CFlagScope making(m_makingBar);
    const CInspector inspector = m_inspector;
    if (!inspector) return;
    const CCommandBars bars(inspector.CommandBars());
    const auto bar =
        std::make_shared<CContactBar>(bars, m_windows.Faces().Text(IDS_PRODUCT_NAME), m_number,
                                      m_pictures, weak_from_this(), m_actions, m_owner, m_log);
    bar->Place(m_place);
    // Drop the bar if the window closed meanwhile.
    if (m_inspector) m_bar = bar;
  });
  Draw();
}

void CContactWindow::OnWindowEvent(DISPID event) {
  switch (event) {
    case kEventActivate:
      return OnActivate();
    case kEventClose:
      if (HasBar()) m_log.Write("CAddin::OnCloseInspector\n");
      Close();
      return m_windows.OnClosed(*this);
    default:
      return;
  }
}

// The window may show another contact now, or the contact may have been changed elsewhere.
void CContactWindow::OnActivate() {
  FollowContact();
  if (!m_inspector) return;
  if (HasBar()) return m_bar ? Draw() : MakeBar();
  if (NumbersChanged()) m_windows.InvalidateRibbon();
}

bool CContactWindow::NumbersChanged() noexcept {
  if (HasBar() || !m_inspector) return false;
  bool changed = false;
  GuardCall(m_log, "numbers of the contact", [&] {
    const CContactItem contact = m_contact;
    std::vector<ContactNumber> numbers = NumbersOf(contact, m_log);
    changed = m_inspector && numbers != m_numbers;
    m_numbers = std::move(numbers);
  });
  return changed;
}

void CContactWindow::OnContactEvent(DISPID event, const CEventArguments& arguments) {
  // The item closes when its window closes or shows another item.
  const bool changed = event == kEventItemClose ||
                       (event == kEventPropertyChange && TelNumberTypeOf(arguments.Text(0)) != 0);
  if (!changed || m_stale) return;
  m_stale = true;
  m_windows.RequestRefresh();
}

bool CContactWindow::Refresh() noexcept {
  if (!std::exchange(m_stale, false)) return false;
  FollowContact();
  Draw();
  return NumbersChanged();
}

ContactBarFaces CContactWindow::Faces() const {
  // Read the contact first: the calls may change the telephone's state.
  const CInspector inspector = m_inspector;
  std::vector<ContactNumber> numbers;
  GuardCall(m_log, "numbers of the contact", [&] {
    if (const CContactItem contact = ContactOf(inspector)) numbers = NumbersOf(contact, m_log);
  });
  const CControlFaces faces = m_windows.Faces();
  ContactBarFaces shown;
  const auto face = [&](int control) {
    ItemFace drawn = faces.BarControl(control);
    if (!m_connected) drawn.enabled = false;
    return drawn;
  };
  // The menu is enabled like the dial box.
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

void CContactWindow::DisableControls() noexcept {
  m_connected = false;
  Draw();
}

void CContactWindow::SavePlace() noexcept {
  const auto bar = m_bar;
  if (bar) bar->SavePlace(m_place);
}

void CContactWindow::Close() noexcept {
  // Clear our members first: every call into Outlook may re-enter.
  const CInspector inspector = std::exchange(m_inspector, {});
  const CContactItem contact = std::exchange(m_contact, {});
  const auto bar = std::exchange(m_bar, nullptr);
  m_pick = 0;
  m_stale = false;
  m_events.Unadvise();
  m_contactEvents.Unadvise();
  if (!bar) return;
  bar->SavePlace(m_place);
  bar->Remove();
}

// The picked number; none if the window now shows another contact than the one it was picked for.
ContactNumber CContactWindow::Picked() {
  const int pick = m_pick;
  if (pick == 0) return {};
  const CContactItem contact = ContactOf(m_inspector);
  if (!contact || !IsSameContact(contact, m_contact)) return {};
  return {pick, contact.TelephoneNumber(pick)};
}

void CContactWindow::Pick(int telNumberType) {
  if (std::exchange(m_pick, telNumberType) != telNumberType) m_windows.InvalidateRibbon();
}

void CContactWindow::PickNumber(int telNumberType) {
  FollowContact();
  const CContactItem contact = m_contact;
  if (!contact) return;
  const std::wstring number = contact.TelephoneNumber(telNumberType);
  if (!m_inspector || number.empty()) return;
  if (m_actions.PickNumber(number)) Pick(telNumberType);
}

void CContactWindow::ClickLine(uint8_t lineType) {
  ContactNumber number;
  GuardCall(m_log, "numbers of the contact", [&] {
    number = Picked();
    if (number.number.empty()) number = FirstNumberOf(ContactOf(m_inspector), m_log);
  });
  // The window closed during the calls.
  if (!m_inspector) return;
  if (m_actions.DialOnLine(lineType, number.number)) Pick(0);
}

}  // namespace quor
