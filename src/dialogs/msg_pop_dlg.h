#ifndef QUOR_DIALOGS_MSG_POP_DLG_H
#define QUOR_DIALOGS_MSG_POP_DLG_H

#include "dialogs/modeless_dialog.h"
#include "telephone/collaborators.h"

namespace quor {

// The message pop-up: tells a telephone error. One window, made at the first message and used again
// for every later one; a second message replaces the text of the first.
class CMsgPopDlg final : public CModelessDialog, public IMessagePopup {
 public:
  explicit CMsgPopDlg(const DialogHost& host) noexcept;

  // Outlook's main window, which owns the pop-up; null until it is known. Before the first message.
  void SetOwner(HWND outlook) noexcept { m_outlook = outlook; }

  void ShowMessage(int stringId) override;

 private:
  HWND m_outlook = nullptr;
};

}  // namespace quor

#endif
