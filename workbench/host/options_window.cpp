#include "workbench/host/options_window.h"

// clang-format off
#include <commctrl.h>
// clang-format on

#include <algorithm>
#include <utility>

#include "workbench/host/dialog_ids.h"

namespace quor::workbench {

COptionsWindow::COptionsWindow(COutlook& outlook, CMessageLoop& loop)
    : m_outlook(outlook), m_loop(loop) {
  const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
  InitCommonControlsEx(&classes);
}

COptionsWindow::~COptionsWindow() {
  Close();
}

void COptionsWindow::Open(HWND owner) {
  if (m_window != nullptr) throw CMailboxError("the options are open already");
  CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_OPTIONS), owner,
                     DialogProcedure, reinterpret_cast<LPARAM>(this));
  if (m_window == nullptr) throw CModelError(E_FAIL, "no window for the options");
  try {
    AddPages();
    if (!m_pages.empty()) m_pages[m_shown]->Show();
  } catch (...) {
    Close();
    throw;
  }
  m_owner = owner;
  EnableWindow(m_owner, FALSE);
  m_loop.SetFilter([this](MSG& message) { return TakesKey(message); });
  ShowWindow(m_window, SW_SHOW);
  SetForegroundWindow(m_window);
}

void COptionsWindow::AddPages() {
  const HWND tabs = GetDlgItem(m_window, IDC_OPTIONS_TABS);
  IPageFrame& frame = *this;
  for (const OptionsPage& page : m_outlook.RaiseOptionsPagesAdd()) {
    m_pages.push_back(std::make_unique<COptionsPage>(m_outlook.Session(), frame, page));
    std::wstring title = m_pages.back()->Title();
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = title.data();
    SendMessageW(tabs, TCM_INSERTITEMW, m_pages.size() - 1, reinterpret_cast<LPARAM>(&item));
  }
}

void COptionsWindow::Close() noexcept {
  if (m_window == nullptr) return;
  m_loop.SetFilter(nullptr);
  // Enable the owner first: otherwise another program's window would come to the front.
  EnableWindow(std::exchange(m_owner, nullptr), TRUE);
  m_pages.clear();
  SetActivePage(nullptr);
  m_shown = 0;
  DestroyWindow(std::exchange(m_window, nullptr));
}

RECT COptionsWindow::PagePlace() {
  const HWND tabs = GetDlgItem(m_window, IDC_OPTIONS_TABS);
  RECT place = {};
  GetWindowRect(tabs, &place);
  MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&place), 2);
  SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
  return place;
}

void COptionsWindow::OnPageStatus() {
  const bool dirty = std::ranges::any_of(m_pages, [](const auto& page) { return page->IsDirty(); });
  const HWND apply = GetDlgItem(m_window, IDC_OPTIONS_APPLY);
  // Move the focus away from a button before it is disabled.
  if (!dirty && GetFocus() == apply) {
    SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(m_window, IDOK)),
                 TRUE);
  }
  EnableWindow(apply, dirty);
}

void COptionsWindow::SetActivePage(IOleInPlaceActiveObject* page) {
  if (page != nullptr) page->AddRef();
  if (IOleInPlaceActiveObject* before = std::exchange(m_activePage, page)) before->Release();
}

void COptionsWindow::ShowChosenPage() {
  const auto chosen =
      static_cast<size_t>(SendDlgItemMessageW(m_window, IDC_OPTIONS_TABS, TCM_GETCURSEL, 0, 0));
  if (chosen >= m_pages.size() || chosen == m_shown) return;
  m_pages[m_shown]->Hide();
  m_shown = chosen;
  m_pages[m_shown]->Show();
}

void COptionsWindow::Apply() {
  for (const auto& page : m_pages) {
    if (page->IsDirty()) page->Apply();
  }
  OnPageStatus();
}

bool COptionsWindow::OnCommand(int id) {
  switch (id) {
    case IDOK:
      Apply();
      Close();
      return true;
    case IDC_OPTIONS_APPLY:
      Apply();
      return true;
    case IDCANCEL:
      Close();
      return true;
    default:
      return false;
  }
}

// Passes keys to the active page first, then to the dialog.
bool COptionsWindow::TakesKey(MSG& message) {
  const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  if (!isKey || !IsChild(m_window, message.hwnd)) return false;
  return (m_activePage != nullptr && m_activePage->TranslateAccelerator(&message) == S_OK) ||
         IsDialogMessageW(m_window, &message);
}

INT_PTR CALLBACK COptionsWindow::DialogProcedure(HWND window, UINT message, WPARAM wparam,
                                                 LPARAM lparam) {
  if (message == WM_INITDIALOG) {
    reinterpret_cast<COptionsWindow*>(lparam)->m_window = window;
    SetWindowLongPtrW(window, DWLP_USER, lparam);
    return FALSE;
  }
  auto* self = reinterpret_cast<COptionsWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (self == nullptr || self->m_window == nullptr) return FALSE;
  try {
    if (message == WM_COMMAND) return self->OnCommand(LOWORD(wparam));
    const auto* notice = reinterpret_cast<const NMHDR*>(lparam);
    if (message == WM_NOTIFY && notice->code == static_cast<UINT>(TCN_SELCHANGE)) {
      self->ShowChosenPage();
    }
  } catch (const CModelError& error) {
    // As in Outlook, the dialog stays open and shows the error.
    SetWindowTextA(GetDlgItem(window, IDC_OPTIONS_ERROR), error.what());
  }
  return FALSE;
}

}  // namespace quor::workbench
