#include "dialogs/options_panel.h"

#include <algorithm>
#include <iterator>

#include "outlook/com_boundary.h"
#include "resources/resource_ids.h"

namespace quor {
namespace {

constexpr int kLanguageCount = 3;
// The modes in the order of the lists.
constexpr int32_t kModes[] = {kPopUpContactForm, kPopUpSimpleWindow, kPopUpOff};

LRESULT RowOfLanguage(int32_t language) noexcept {
  return language >= 0 && language < kLanguageCount ? language : CB_ERR;
}

LRESULT RowOfMode(int32_t mode) noexcept {
  const auto* found = std::ranges::find(kModes, mode);
  return found == std::end(kModes) ? 0 : found - kModes;
}

// The letter after the first single "&", in upper case; NUL when there is none.
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
  if (m_window != nullptr) return;
  const DLGTEMPLATE* dialog = m_resources.DialogTemplate(IDD_OPTIONS_PANEL);
  // Not every failure leaves an error code.
  SetLastError(ERROR_SUCCESS);
  if (dialog == nullptr ||
      CreateDialogIndirectParamW(m_resources.Module(), dialog, parent, DialogProcedure,
                                 reinterpret_cast<LPARAM>(this)) == nullptr) {
    const DWORD error = GetLastError();
    _com_issue_error(error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error));
  }
  SetWindowPos(m_window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void COptionsPanel::Destroy() noexcept {
  if (m_window != nullptr) DestroyWindow(m_window);
}

void COptionsPanel::FocusFirst() noexcept {
  SetFocus(GetDlgItem(m_window, IDC_OPTIONS_LANGUAGE));
}

void COptionsPanel::Load(const OptionValues& values) {
  m_loaded = values;
  m_withoutWindow = values;
  ShowValues();
}

OptionValues COptionsPanel::Values() const noexcept {
  if (m_window == nullptr) return m_withoutWindow;
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
  return values;
}

OptionValues COptionsPanel::ValuesOver(OptionValues current) const noexcept {
  const OptionValues chosen = Values();
  if (chosen.languageNo != m_loaded.languageNo) current.languageNo = chosen.languageNo;
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    const int32_t mode = chosen.popUpModes[slot];
    if (mode != m_loaded.popUpModes[slot]) current.popUpModes[slot] = mode;
  }
  return current;
}

void COptionsPanel::FillList(int id, int firstText) {
  const HWND list = GetDlgItem(m_window, id);
  for (int row = 0; row < 3; ++row) {
    const std::wstring text = m_resources.Text(firstText + row);
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

void COptionsPanel::ShowValues() noexcept {
  const OptionValues& values = m_withoutWindow;
  SendDlgItemMessageW(m_window, IDC_OPTIONS_LANGUAGE, CB_SETCURSEL,
                      static_cast<WPARAM>(RowOfLanguage(values.languageNo)), 0);
  for (size_t slot = 0; slot < kPopUpSlots; ++slot) {
    SendDlgItemMessageW(m_window, IDC_OPTIONS_POP_UP + static_cast<int>(slot), CB_SETCURSEL,
                        static_cast<WPARAM>(RowOfMode(values.popUpModes[slot])), 0);
  }
}

LRESULT COptionsPanel::SelectedRow(int id) const noexcept {
  return SendDlgItemMessageW(m_window, id, CB_GETCURSEL, 0, 0);
}

bool COptionsPanel::TranslateKey(MSG& message) noexcept {
  if (m_window == nullptr || (message.hwnd != m_window && !IsChild(m_window, message.hwnd))) {
    return false;
  }
  const LRESULT code =
      SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
  const bool wanted = (code & (DLGC_WANTMESSAGE | DLGC_WANTALLKEYS)) != 0;
  if (message.message == WM_KEYDOWN && !wanted) {
    if (message.wParam == VK_RETURN && (code & DLGC_BUTTON) != 0) {
      SendMessageW(message.hwnd, BM_CLICK, 0, 0);
      return true;
    }
    if (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) return false;
    if (message.wParam == VK_TAB && LeavesPanel(GetKeyState(VK_SHIFT) < 0)) return false;
  }
  if (message.message == WM_SYSCHAR && !HasAccessKey(static_cast<wchar_t>(message.wParam))) {
    return false;
  }
  return IsDialogMessageW(m_window, &message) != FALSE;
}

// Whether the next stop lies, around the end, where the tab order began.
bool COptionsPanel::LeavesPanel(bool backwards) const noexcept {
  const HWND first = GetDlgItem(m_window, IDC_OPTIONS_LANGUAGE);
  const HWND last = GetDlgItem(m_window, IDC_OPTIONS_ABOUT);
  return GetFocus() == (backwards ? first : last);
}

bool COptionsPanel::HasAccessKey(wchar_t letter) const noexcept {
  CharUpperBuffW(&letter, 1);
  for (HWND child = GetWindow(m_window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (AccessKeyOf(child) == letter) return true;
  }
  return false;
}

INT_PTR CALLBACK COptionsPanel::DialogProcedure(HWND window, UINT message, WPARAM wparam,
                                                LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<COptionsPanel*>(lparam)->m_window = window;
    SetWindowLongPtrW(window, DWLP_USER, lparam);
  }
  auto* self = reinterpret_cast<COptionsPanel*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr) return FALSE;
  INT_PTR result = TRUE;  // a handler that failed has had its message
  GuardCall(self->m_log, "options message", [&] { result = self->Handle(message, wparam); });
  return result;
}

bool COptionsPanel::OnNotice(int control, int notice) {
  const bool isButton = control == IDC_OPTIONS_ABOUT;
  if (notice == (isButton ? BN_SETFOCUS : CBN_SETFOCUS)) {
    m_owner.OnPanelFocus();
  } else if (isButton && notice == BN_CLICKED) {
    m_owner.OnAboutPressed();
  } else if (!isButton && notice == CBN_SELCHANGE) {
    m_owner.OnOptionsChanged();
  } else {
    return false;
  }
  return true;
}

INT_PTR COptionsPanel::Handle(UINT message, WPARAM wparam) {
  switch (message) {
    case WM_INITDIALOG:
      FillList(IDC_OPTIONS_LANGUAGE, IDS_LANGUAGE_NAME);
      for (int slot = 0; slot < static_cast<int>(kPopUpSlots); ++slot) {
        FillList(IDC_OPTIONS_POP_UP + slot, IDS_POP_UP_MODE);
      }
      ShowValues();
      return FALSE;  // TRUE would take the focus
    case WM_COMMAND:
      return OnNotice(LOWORD(wparam), HIWORD(wparam));
    case WM_DESTROY:
      m_withoutWindow = Values();
      SetWindowLongPtrW(m_window, DWLP_USER, 0);
      m_window = nullptr;
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace quor
