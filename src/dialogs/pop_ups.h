#ifndef QUOR_DIALOGS_POP_UPS_H
#define QUOR_DIALOGS_POP_UPS_H

#include "dialogs/data_pop_dlg.h"
#include "dialogs/msg_pop_dlg.h"
#include "dialogs/simple_window.h"

namespace quor {

// The pop-up windows of a session, from connection to disconnection. They are destroyed with
// Outlook's main window, and created again when needed while another Outlook window exists. Without
// any Outlook window no pop-up appears, because nobody would see it.
class CPopUps final : public IMessagePopup, private ICallerWindow {
 public:
  // All must outlive the pop-ups.
  CPopUps(const DialogHost& host, IAnswerHandler& answer) noexcept
      : m_log(host.log), m_messages(host), m_caller(host, answer), m_loading(host) {}

  // Creates the caller window hidden; pop-ups may appear from now on.
  void CreateCaller() noexcept;
  // Creates the loading window hidden. The message pop-up is created with its first message.
  void CreateOthers() noexcept;
  void OnMainWindowClosed() noexcept;
  // Disconnection: no pop-up appears any more.
  void Destroy() noexcept;

  void ShowMessage(int stringId) override;
  ICallerWindow& Caller() noexcept { return *this; }

  void ShowLoading() noexcept;
  void HideLoading() noexcept { m_loading.Hide(); }

 private:
  // ICallerWindow
  void Fill(const CallerValue& name, const CallerValue& number, int slot) override;
  void Show() override;
  void Hide() override { m_caller.Hide(); }
  void Follow(uint8_t line1, uint8_t line2, uint8_t cell) override {
    m_caller.Follow(line1, line2, cell);
  }

  void DestroyWindows() noexcept;
  bool MayAppear() const noexcept;
  void LogFailure(const char* window, HRESULT result) noexcept;

  CDiagnosticLog& m_log;
  CMsgPopDlg m_messages;
  CSimpleWindow m_caller;
  CDataPopDlg m_loading;
  bool m_allowed = false;
  bool m_mainWindowClosed = false;
};

}  // namespace quor

#endif
