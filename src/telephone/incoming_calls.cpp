#include "telephone/incoming_calls.h"

#include <array>
#include <utility>

#include "telephone/line_states.h"
#include "telephone/withheld_caller.h"
#include "text/ansi.h"

namespace quor {

namespace {

constexpr int kFirstCellSlot = 2;

static_assert(kPopUpSlots == kSlotCount);

// For a call on a cell, the unit number gives the cell.
int SlotOf(const CallerInformation& information) noexcept {
  if (information.cidLine == kLine1 || information.cidLine == kLine2) {
    return SlotFromLineType(information.cidLine);
  }
  return information.lineUnitNo < kCellCount ? kFirstCellSlot + information.lineUnitNo : kNoSlot;
}

// The caller window must not cover a call of the user's own: true if each of the other two channels
// is idle or busy.
bool OthersAreQuiet(const TelephoneRecord& record, int slot) noexcept {
  const Channel& own = ChannelOf(LineTypeFromSlot(slot));
  for (const Channel& other : kChannels) {
    if (other.state == own.state) continue;
    const uint8_t state = record.*other.state;
    if (state != kStateIdle && state != kStateBusy) return false;
  }
  return true;
}

// Hides the long-distance prefix of a number of eleven characters: "12125550123" becomes
// "2125550123".
std::wstring WithoutPrefix(const std::wstring& number) {
  return number.size() == 11 && number.front() == L'1' ? number.substr(1) : number;
}

}  // namespace

void CIncomingCalls::OnCallerId(bool longDistance) {
  // A copy: the look-ups below may pump messages, and the next caller ID overwrites the original.
  Caller caller{m_state.caller, longDistance, {}, {}, {}};
  const std::string number = caller.information.number;
  m_lastCallerNumber = number;
  caller.name = WideFromAnsi(caller.information.name);
  caller.number = WideFromAnsi(number);

  std::optional<CallerMatch> match = FindPhoneNumber(true, number);
  const bool known = match.has_value();
  if (known) Identify(*match, caller);
  match.reset();  // release the contact: the steps below may take long
  m_collaborators.calls.OnCaller(SlotOf(caller.information),
                                 {caller.name, caller.number, caller.entryId});
  if (!caller.number.empty()) m_callerList.Add(caller.name, caller.number);
  // Redraw first: a contact form may cover or delay the buttons.
  m_collaborators.controls.RedrawControls();
  if (known) {
    DisplayContactItem(caller);
  } else {
    DisplayNewContactItem(caller);
  }
}

// An empty number is not looked up: the checked comparison leaves out pause characters, so that a
// stored "p" would match it.
std::optional<CallerMatch> CIncomingCalls::FindPhoneNumber(bool check, std::string_view number) {
  std::optional<CallerMatch> match;
  if (!number.empty()) {
    match = m_collaborators.directory.FindPhoneNumber(number, check);
    if (!match && check) match = m_collaborators.directory.SearchPhoneNumber(number, check);
  }
  if (!match) m_collaborators.log.Write("FindPhoneNumber not found\n");
  return match;
}

// Takes number and name from the contact. What cannot be read stays as the base sent it.
void CIncomingCalls::Identify(const CallerMatch& match, Caller& caller) {
  caller.entryId = match.entryId;
  auto number = m_collaborators.directory.FindContactPhoneNumber(match);
  if (number && !number->empty()) caller.number = *std::move(number);
  auto fileAs = m_collaborators.directory.FindContactFileAs(match);
  if (!fileAs) return;
  caller.name = *std::move(fileAs);
  caller.reason = match.reason;
}

void CIncomingCalls::DisplayContactItem(const Caller& caller) {
  m_collaborators.log.Write("CAddin::DisplayContactItem\n");
  if (!ShowWithoutForm(caller)) LogForm(m_collaborators.directory.DisplayContact(caller.entryId));
}

void CIncomingCalls::DisplayNewContactItem(const Caller& caller) {
  m_collaborators.log.Write("CAddin::DisplayNewContactItem\n");
  if (!ShowWithoutForm(caller)) LogForm(m_collaborators.directory.DisplayNewContact(caller.number));
}

bool CIncomingCalls::ShowWithoutForm(const Caller& caller) {
  const int slot = SlotOf(caller.information);
  if (slot == kNoSlot) {
    m_collaborators.log.Write("CAddin::DisplayContactItem ReciveLineType Error.\n");
    return true;
  }
  switch (m_collaborators.configuration.popUpModes[static_cast<size_t>(slot)]) {
    case kPopUpOff:
      return true;
    case kPopUpSimpleWindow:
      if (IsCurrent(caller) && OthersAreQuiet(m_state.record, slot)) ShowCallerWindow(caller, slot);
      return true;
    default:
      return false;
  }
}

// During the look-up the call may have ended, or another may have arrived; no report would then
// hide its window.
bool CIncomingCalls::IsCurrent(const Caller& caller) const noexcept {
  return m_state.caller.cidLine == caller.information.cidLine;
}

void CIncomingCalls::ShowCallerWindow(const Caller& caller, int slot) {
  CallerValue name{caller.name, 0, caller.reason};
  if (name.text.empty()) {
    name.withheldTextId = WithheldNameText(caller.information.noName, caller.longDistance);
  }
  CallerValue number{WithoutPrefix(caller.number)};
  if (number.text.empty()) {
    number.withheldTextId = WithheldNumberText(caller.information.noNum, caller.longDistance);
  }
  m_collaborators.callerWindow.Fill(name, number, slot);
  m_collaborators.callerWindow.Show();
}

void CIncomingCalls::LogForm(FormResult result) {
  switch (result) {
    case FormResult::Shown:
      return;
    case FormResult::NoContact:
      m_collaborators.log.Write("CAddin::spContactItem is NULL\n");
      return;
    case FormResult::NotDisplayed:
      m_collaborators.log.Write("CAddin::Inspector can not display\n");
      return;
  }
}

void CIncomingCalls::OnPopup() {
  const std::string number = m_state.caller.number;
  m_collaborators.controls.RedrawControls();
  const int slot = SlotFromLineType(m_state.caller.popupLine);
  if (slot != kNoSlot &&
      m_collaborators.configuration.popUpModes[static_cast<size_t>(slot)] == kPopUpSimpleWindow) {
    m_collaborators.callerWindow.Hide();
    return;
  }
  FindPhoneNumber(false, number);
}

int CIncomingCalls::OnClosePopup() {
  m_collaborators.log.Write("CAddin::OnClosePopup\n");
  m_collaborators.callerWindow.Hide();
  return 0;
}

}  // namespace quor
