#include "dialogs/speed_dial_regist.h"

#include <string>

#include "com/com_boundary.h"
#include "resources/resource_ids.h"
#include "telephone/number_check.h"
#include "text/ansi.h"
#include "text/dial_chars.h"

namespace quor {
namespace {

// Unlike a text in the dial box, an entry must have a number.
int Refusal(const std::wstring& number) {
  return number.empty() ? IDS_INVALID_NUMBER : NumberRefusal(AnsiFromWide(number));
}

}  // namespace

CSpeedDialRegist::CSpeedDialRegist(const DialogHost& host, ISpeedDialStore& store,
                                   IMessagePopup& messages) noexcept
    : CModelessDialog(host, IDD_SPEED_DIAL_REGIST), m_store(store), m_messages(messages) {}

void CSpeedDialRegist::Open(HWND outlook, size_t index, const SpeedDialEntry& entry,
                            const SpeedDialEntry& offered) noexcept {
  GuardCall(m_log, "speed dial entry", [&] {
    RequireWindow(outlook);
    m_index = index;
    const SpeedDialEntry proposed = {offered.name, FilterDialChars(offered.number)};
    Fill(entry == SpeedDialEntry() ? proposed : entry);
    ShowInFront(outlook, CentreOver);
    if (GetActiveWindow() == Window()) FocusControl(IDC_SPEED_DIAL_NAME);
  });
}

// Not through the ANSI code page, so that no character of the user's text is lost.
void CSpeedDialRegist::Fill(const SpeedDialEntry& shown) noexcept {
  SetWindowTextW(Control(IDC_SPEED_DIAL_NAME), shown.name.c_str());
  SetWindowTextW(Control(IDC_SPEED_DIAL_NUMBER), shown.number.c_str());
}

void CSpeedDialRegist::OnButton(int id) {
  if (id == IDOK) {
    Save();
  } else {
    Hide();
  }
}

void CSpeedDialRegist::Save() {
  // Drops punctuation from a pasted number.
  SpeedDialEntry entry = {TypedText(IDC_SPEED_DIAL_NAME),
                          WithoutNumberPunctuation(TypedText(IDC_SPEED_DIAL_NUMBER))};
  if (const int refusal = Refusal(entry.number); refusal != IDS_NONE) {
    FocusControl(IDC_SPEED_DIAL_NUMBER);
    m_messages.ShowMessage(refusal);
    return;
  }
  // An entry without a name uses its number as its menu text.
  if (entry.name.find_first_not_of(L' ') == std::wstring::npos) entry.name = entry.number;
  Hide();
  m_store.SetEntry(m_index, entry);
}

}  // namespace quor
