#ifndef QUOR_DIALOGS_POP_UPS_H
#define QUOR_DIALOGS_POP_UPS_H

#include "dialogs/data_pop_dlg.h"
#include "dialogs/msg_pop_dlg.h"
#include "dialogs/simple_window.h"

namespace quor {

// The pop-up windows of a session, from the connection to the closing of Outlook's window. None
// appears before or after: a message for nobody is not worth a window.
class CPopUps final : public IMessagePopup {
 public:
  // All must outlive the pop-ups.
  CPopUps(const CResourceLoader& resources, IAnswerHandler& answer, CDiagnosticLog& log) noexcept
      : m_log(log),
        m_messages(resources, log),
        m_caller(resources, answer, log),
        m_loading(resources, log) {}

  // The caller window, hidden.
  void CreateCaller() noexcept;
  // Finds Outlook's main window, on whose monitor the others appear; then the loading window,
  // hidden, and the message pop-up, whose window waits for its first message.
  void FindOutlook() noexcept;
  void CreateOthers() noexcept;
  void Destroy() noexcept;

  void ShowMessage(int stringId) override;
  ICallerWindow& Caller() noexcept { return m_caller; }

  void ShowLoading() noexcept { m_loading.Show(); }
  void HideLoading() noexcept { m_loading.Hide(); }

  HWND OutlookWindow() const noexcept { return m_outlook; }

 private:
  void LogFailure(const char* window, HRESULT result) noexcept;

  CDiagnosticLog& m_log;
  CMsgPopDlg m_messages;
  CSimpleWindow m_caller;
  CDataPopDlg m_loading;
  HWND m_outlook = nullptr;
  bool m_open = false;
};

}  // namespace quor

#endif
