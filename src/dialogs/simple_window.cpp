#include "dialogs/simple_window.h"

#include <oleacc.h>

#include "com/com_boundary.h"
#include "dialogs/name_reason.h"
#include "resources/resource_ids.h"
#include "telephone/telephone_state.h"
#include "text/format.h"

namespace quor {
namespace {

// Values are shown without access keys; the string table doubles "&" for labels.
std::wstring WithoutDoubledAmpersands(const std::wstring& label) {
  std::wstring text;
  for (size_t i = 0; i < label.size(); ++i) {
    text += label[i];
    if (label[i] == L'&' && i + 1 < label.size() && label[i + 1] == L'&') ++i;
  }
  return text;
}

uint8_t StateOfSlot(int slot, uint8_t line1, uint8_t line2, uint8_t cell) noexcept {
  if (slot == 0) return line1;
  return slot == 1 ? line2 : cell;
}

}  // namespace

CSimpleWindow::CSimpleWindow(const DialogHost& host, IAnswerHandler& answer) noexcept
    : CModelessDialog(host, IDD_CALLER), m_answer(answer), m_announcement(ROLE_SYSTEM_ALERT) {}

void CSimpleWindow::Fill(const CallerValue& name, const CallerValue& number, int slot) {
  GuardCall(m_log, "caller window", [&] {
    Explain(name, number);
    SetItemText(IDC_CALLER_NAME, Shown(name));
    SetItemText(IDC_CALLER_NUMBER, Shown(number));
    SetItemText(IDC_CALLER_LINE, m_resources.Text(IDS_SLOT_NAME + slot));
    m_slot = slot;
    EnableControl(IDOK, true, IDCANCEL);
  });
}

void CSimpleWindow::Show() {
  ++m_shown;
  const bool inFront = IsVisible() && GetActiveWindow() == Window();
  if (!inFront) m_focus.Note();
  ShowInFront(m_outlook, CentreBelowToolbar);
  m_nameTip.Place();  // another monitor may have another scale
  // Another call while the window is already in front.
  if (inFront) m_keys.Begin();
  // The window may be behind another program's, so notify screen readers, too.
  if (IsVisible()) NotifyWinEvent(EVENT_SYSTEM_ALERT, Window(), OBJID_CLIENT, CHILDID_SELF);
}

void CSimpleWindow::Hide() {
  if (!IsVisible()) return;
  const unsigned shown = m_shown;
  m_nameTip.Hide();
  m_focus.Return(Window());
  // Do not hide the window if the next call was shown while the focus moved.
  if (shown == m_shown) CModelessDialog::Hide();
}

void CSimpleWindow::Follow(uint8_t line1, uint8_t line2, uint8_t cell) {
  if (!IsVisible()) return;
  const uint8_t state = StateOfSlot(m_slot, line1, line2, cell);
  if (state == kStateIdle) Hide();
  if (state == kStateInCall) EnableControl(IDOK, false, IDCANCEL);
}

void CSimpleWindow::OnCreated() {
  SetCaptionText(m_resources.Text(IDS_INCOMING_CALL));
  m_keys.Attach(Window());
  m_announcement.Attach(Window());
  m_nameExplained.Attach(Control(IDC_CALLER_NAME));
  m_nameTip.Attach(Control(IDC_CALLER_NAME));
}

void CSimpleWindow::OnActivation(bool active) {
  if (active) {
    m_keys.Begin();
  } else {
    m_keys.End();
    m_focus.Forget();
  }
}

bool CSimpleWindow::AdmitsKey(const MSG& message) noexcept {
  return m_keys.Admits(message.message, message.wParam, message.lParam, message.time);
}

void CSimpleWindow::OnButton(int id) {
  // The press may have begun before the call ended.
  const bool answers = id == IDOK && IsVisible() && IsWindowEnabled(Control(IDOK));
  // Moving the focus may pump messages, and the next call may be shown.
  const int slot = m_slot;
  Hide();
  if (answers) m_answer.OnAnswer(slot);
}

void CSimpleWindow::Explain(const CallerValue& name, const CallerValue& number) {
  const std::wstring caller = name.text.empty() && !number.text.empty() ? number.text : Shown(name);
  const std::wstring reason = NameReason(name, m_resources);
  m_announcement.Set({InsertTexts(m_resources.Text(IDS_INCOMING_CALL_FROM), {caller}), reason});
  m_nameExplained.Set({{}, reason});
  m_nameTip.SetText(reason);
}

std::wstring CSimpleWindow::Shown(const CallerValue& value) const {
  if (value.withheldTextId == 0) return value.text;
  return WithoutDoubledAmpersands(m_resources.Text(value.withheldTextId));
}

void CSimpleWindow::SetCaptionText(std::wstring_view text) {
  if (!SetText(Window(), text)) m_log.Write("** CSimpleWindow::SetDlgCaptionText error.\n");
}

void CSimpleWindow::SetItemText(int id, std::wstring_view text) {
  if (!SetText(Control(id), text)) m_log.Write("** CSimpleWindow::SetDlgItemText error.\n");
}

}  // namespace quor
