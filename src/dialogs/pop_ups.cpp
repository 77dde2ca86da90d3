#include "dialogs/pop_ups.h"

#include "dialogs/outlook_window.h"

namespace quor {

void CPopUps::LogFailure(const char* window, HRESULT result) noexcept {
  if (FAILED(result)) {
    m_log.Print("** Error : %s not created. (0x%08X)\n", window, static_cast<unsigned>(result));
  }
}

void CPopUps::CreateCaller() noexcept {
  m_allowed = true;
  m_mainWindowClosed = false;
  LogFailure("CSimpleWindow", m_caller.Create());
}

void CPopUps::CreateOthers() noexcept {
  LogFailure("CDataPopDlg", m_loading.Create(FindOutlookWindow()));
}

void CPopUps::OnMainWindowClosed() noexcept {
  m_mainWindowClosed = true;
  DestroyWindows();
}

void CPopUps::Destroy() noexcept {
  m_allowed = false;
  DestroyWindows();
}

void CPopUps::DestroyWindows() noexcept {
  m_loading.Destroy();
  m_messages.Destroy();
  m_caller.Destroy();
}

bool CPopUps::MayAppear() const noexcept {
  return m_allowed && (!m_mainWindowClosed || FindOutlookWindow() != nullptr);
}

void CPopUps::ShowMessage(int stringId) {
  if (!MayAppear()) return;
  m_messages.SetOwner(FindOutlookWindow());
  m_messages.ShowMessage(stringId);
}

void CPopUps::Fill(const CallerValue& name, const CallerValue& number, int slot) {
  if (MayAppear() && !m_caller.IsWindow()) LogFailure("CSimpleWindow", m_caller.Create());
  m_caller.Fill(name, number, slot);
}

void CPopUps::Show() {
  m_caller.SetOutlookWindow(FindOutlookWindow());
  m_caller.Show();
}

void CPopUps::ShowLoading() noexcept {
  if (MayAppear() && !m_loading.IsWindow()) CreateOthers();
  m_loading.Show();
}

}  // namespace quor
