#include "dialogs/options_dialog.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"

namespace quor {

COptionsDialog::COptionsDialog(const DialogHost& host, IOptionsStore& store) noexcept
    : CModelessDialog(host, IDD_OPTIONS), m_store(store), m_panel(host, *this) {}

void COptionsDialog::Open(HWND outlook) noexcept {
  GuardCall(m_log, "options", [&] {
    RequireWindow(outlook);
    if (!IsVisible()) Load(m_store.Reload());
    ShowInFront(outlook, CentreOver);
    if (GetActiveWindow() == Window()) m_panel.FocusFirst();
  });
}

void COptionsDialog::OnCreated() {
  m_panel.Create(Window());
  ShowWindow(m_panel.Window(), SW_SHOW);
}

void COptionsDialog::OnButton(int id) {
  switch (id) {
    case IDOK:
      Apply();
      Hide();
      break;
    case IDC_OPTIONS_APPLY:
      Apply();
      break;
    case IDC_OPTIONS_ABOUT:  // Enter on the panel's button arrives here
      OnAboutPressed();
      break;
    default:
      Hide();
      break;
  }
}

void COptionsDialog::OnOptionsChanged() {
  EnableControl(IDC_OPTIONS_APPLY, m_panel.IsDirty(), IDOK);
}

void COptionsDialog::OnAboutPressed() {
  m_store.ShowAbout(Window());
}

void COptionsDialog::Load(const OptionValues& values) {
  m_panel.Load(values);
  OnOptionsChanged();
}

void COptionsDialog::Apply() {
  if (!m_panel.IsDirty()) return;
  const OptionValues values = m_panel.ValuesOver(m_store.Load());
  m_store.Apply(values);
  Load(values);
}

}  // namespace quor
