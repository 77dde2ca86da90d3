#include "dialogs/modeless_dialog.h"

#include "text/ansi.h"

namespace quor {
namespace {

ScreenArea AreaFrom(const RECT& rectangle) noexcept {
  return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

struct Surroundings {
  ScreenArea anchor;
  ScreenArea workArea;
};

Surroundings SurroundingsOf(HWND outlook) noexcept {
  const bool usable =
      outlook != nullptr && IsWindow(outlook) && IsWindowVisible(outlook) && !IsIconic(outlook);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  // Also works for a minimised or destroyed window: Windows then returns the nearest or primary
  // monitor.
  GetMonitorInfoW(MonitorFromWindow(outlook, MONITOR_DEFAULTTOPRIMARY), &monitor);
  Surroundings result = {AreaFrom(monitor.rcWork), AreaFrom(monitor.rcWork)};
  RECT rectangle = {};
  if (usable && GetWindowRect(outlook, &rectangle)) result.anchor = AreaFrom(rectangle);
  return result;
}

}  // namespace

void CModelessDialog::RequireWindow(HWND owner) {
  if (IsWindow() && !IsVisible() && GetWindow(Window(), GW_OWNER) != owner) Destroy();
  CDialogWindow::RequireWindow(owner);
}

void CModelessDialog::ShowInFront(HWND outlook, Placement place) noexcept {
  if (!IsWindow()) return;
  // Place it twice: its size may change when it moves to another monitor.
  for (int pass = 0; pass < 2; ++pass) {
    RECT own = {};
    GetWindowRect(Window(), &own);
    const Surroundings around = SurroundingsOf(outlook);
    const ScreenPoint corner =
        place(around.anchor, own.right - own.left, own.bottom - own.top, around.workArea);
    SetWindowPos(Window(), nullptr, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  ShowWindow(Window(), SW_SHOW);
  RedrawWindow(Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  SetForegroundWindow(Window());
  if (GetActiveWindow() == Window()) FocusControl(IDOK);
}

void CModelessDialog::FocusControl(int id) noexcept {
  SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id)), TRUE);
}

void CModelessDialog::EnableControl(int id, bool enabled, int next) noexcept {
  if (!enabled && GetFocus() == Control(id)) FocusControl(next);
  EnableWindow(Control(id), enabled);
}

void CModelessDialog::Hide() noexcept {
  if (IsWindow()) ShowWindow(Window(), SW_HIDE);
}

bool CModelessDialog::SetText(HWND window, std::wstring_view text) {
  return SetWindowTextA(window, AnsiFromWide(text).c_str()) != FALSE;
}

std::wstring CModelessDialog::TypedText(int id) const {
  const HWND control = Control(id);
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return text;
}

void CModelessDialog::OnButton(int) {
  Hide();
}

INT_PTR CModelessDialog::Handle(UINT message, WPARAM wparam) {
  switch (message) {
    case WM_INITDIALOG:
      OnCreated();
      return FALSE;  // TRUE would set the focus to the hidden window
    case WM_SHOWWINDOW:
      if (wparam != FALSE) {
        m_keyboard.Attach(Window(), *this);
      } else {
        m_keyboard.Detach();
      }
      return FALSE;
    case WM_ACTIVATE:
      OnActivation(LOWORD(wparam) != WA_INACTIVE);
      return FALSE;
    case WM_COMMAND:
      if (HIWORD(wparam) != BN_CLICKED) return FALSE;
      OnButton(LOWORD(wparam));
      return TRUE;
    case WM_CLOSE:
      OnButton(IDCANCEL);
      return TRUE;
    case WM_DESTROY:
      m_keyboard.Detach();
      return FALSE;
    default:
      return FALSE;
  }
}

}  // namespace quor
