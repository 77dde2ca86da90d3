#include "dialogs/options_panel.h"

#include <algorithm>
#include <iterator>

#include "resources/resource_ids.h"

namespace quor {
namespace {

// Pop-up modes in the order of the lists.
constexpr int32_t kModes[] = {kPopUpContactForm, kPopUpSimpleWindow, kPopUpOff};

LRESULT RowOfLanguage(int32_t language) noexcept {
  return language >= 0 && language < kLanguageCount ? language : CB_ERR;
}

LRESULT RowOfMode(int32_t mode) noexcept {
  const auto* found = std::ranges::find(kModes, mode);
  return found == std::end(kModes) ? 0 : found - kModes;
}

// The letter after the first single "&", in upper case; NUL if there is none.
wchar_t AccessKeyOf(HWND control) noexcept {
  wchar_t text[128] = {};
  GetWindowTextW(control, text, static_cast<int>(std::size(text)));
  for (const wchar_t* next = text; *next != L'\0'; ++next) {
    if (*next != L'&') continue;
    ++next;
    if (*next == L'\0') break;
    if (*next == L'&') continue;
    wchar_t letter = *next;
    CharUpperBuffW(&letter, 1);
    return letter;
  }
  return L'\0';
}

}  // namespace

void COptionsPanel::Create(HWND parent) {
  if (IsWindow()) return;
  RequireWindow(parent);
  SetWindowPos(Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void COptionsPanel::FocusFirst() noexcept {
  SetFocus(Control(IDC_OPTIONS_LANGUAGE));
}

void COptionsPanel::Load(const OptionValues& values) {
  m_loaded = values;
  m_withoutWindow = values;
  ShowValues();
}

OptionValues COptionsPanel::Values() const noexcept {
  if (Window() == nullptr) return m_withoutWindow;
  OptionValues values = m_loaded;
  const LRESULT language = SelectedRow(IDC_OPTIONS_LANGUAGE);
  if (language != RowOfLanguage(m_loaded.languageNo)) {
    values.languageNo = static_cast<int32_t>(language);
  }
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    const LRESULT row = SelectedRow(IDC_OPTIONS_POP_UP + static_cast<int>(slot));
    if (row >= 0 && row != RowOfMode(m_loaded.popUpModes[slot])) {
      values.popUpModes[slot] = kModes[row];
    }
  }
  values.recordCalls = IsDlgButtonChecked(Window(), IDC_OPTIONS_JOURNAL) == BST_CHECKED;
  return values;
}

OptionValues COptionsPanel::ValuesOver(OptionValues current) const noexcept {
  const OptionValues chosen = Values();
  if (chosen.languageNo != m_loaded.languageNo) current.languageNo = chosen.languageNo;
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    const int32_t mode = chosen.popUpModes[slot];
    if (mode != m_loaded.popUpModes[slot]) current.popUpModes[slot] = mode;
  }
  if (chosen.recordCalls != m_loaded.recordCalls) current.recordCalls = chosen.recordCalls;
  return current;
}

void COptionsPanel::FillList(int id, int firstText, int rows) {
  const HWND list = Control(id);
  for (int row = 0; row < rows; ++row) {
    const std::wstring text = m_resources.Text(firstText + row);
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

void COptionsPanel::ShowValues() noexcept {
  const OptionValues& values = m_withoutWindow;
  SendDlgItemMessageW(Window(), IDC_OPTIONS_LANGUAGE, CB_SETCURSEL,
                      static_cast<WPARAM>(RowOfLanguage(values.languageNo)), 0);
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    SendDlgItemMessageW(Window(), IDC_OPTIONS_POP_UP + static_cast<int>(slot), CB_SETCURSEL,
                        static_cast<WPARAM>(RowOfMode(values.popUpModes[slot])), 0);
  }
  CheckDlgButton(Window(), IDC_OPTIONS_JOURNAL, values.recordCalls ? BST_CHECKED : BST_UNCHECKED);
}

LRESULT COptionsPanel::SelectedRow(int id) const noexcept {
  return SendDlgItemMessageW(Window(), id, CB_GETCURSEL, 0, 0);
}

bool COptionsPanel::TranslateKey(MSG& message) noexcept {
  if (Window() == nullptr || (message.hwnd != Window() && !IsChild(Window(), message.hwnd))) {
    return false;
  }
  const LRESULT code =
      SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  const bool wanted = (code & (DLGC_WANTMESSAGE | DLGC_WANTALLKEYS)) != 0;
  if (message.message == WM_KEYDOWN && !wanted) {
    constexpr LRESULT kPushButton = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
    if (message.wParam == VK_RETURN && (code & kPushButton) != 0) {
      SendMessageW(message.hwnd, BM_CLICK, 0, 0);
      return true;
    }
    if (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) return false;
    if (message.wParam == VK_TAB && LeavesPanel(GetKeyState(VK_SHIFT) < 0)) return false;
  }
  if (message.message == WM_SYSCHAR && !HasAccessKey(static_cast<wchar_t>(message.wParam))) {
    return false;
  }
  return IsDialogMessageW(Window(), &message) != FALSE;
}

// Whether Tab would wrap around from one end of the tab order to the other.
bool COptionsPanel::LeavesPanel(bool backwards) const noexcept {
  const HWND first = Control(IDC_OPTIONS_LANGUAGE);
  const HWND last = Control(IDC_OPTIONS_ABOUT);
  return GetFocus() == (backwards ? first : last);
}

bool COptionsPanel::HasAccessKey(wchar_t letter) const noexcept {
  CharUpperBuffW(&letter, 1);
  for (HWND child = GetWindow(Window(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (AccessKeyOf(child) == letter) return true;
  }
  return false;
}

bool COptionsPanel::OnNotice(int control, int notice) {
  const bool isAbout = control == IDC_OPTIONS_ABOUT;
  const bool isList = !isAbout && control != IDC_OPTIONS_JOURNAL;
  if (notice == (isList ? CBN_SETFOCUS : BN_SETFOCUS)) {
    m_owner.OnPanelFocus();
  } else if (isAbout && notice == BN_CLICKED) {
    m_owner.OnAboutPressed();
  } else if (notice == (isList ? CBN_SELCHANGE : BN_CLICKED)) {
    m_owner.OnOptionsChanged();
  } else {
    return false;
  }
  return true;
}

INT_PTR COptionsPanel::Handle(UINT message, WPARAM wparam) {
  switch (message) {
    case WM_INITDIALOG:
      FillList(IDC_OPTIONS_LANGUAGE, IDS_LANGUAGE_NAME, kLanguageCount);
      for (int slot = 0; slot < static_cast<int>(kPopUpSlots); ++slot) {
        FillList(IDC_OPTIONS_POP_UP + slot, IDS_POP_UP_MODE, std::size(kModes));
      }
      ShowValues();
      return FALSE;  // TRUE would take the focus
    case WM_COMMAND:
      return OnNotice(LOWORD(wparam), HIWORD(wparam));
    case WM_DESTROY:
      m_withoutWindow = Values();
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace quor
