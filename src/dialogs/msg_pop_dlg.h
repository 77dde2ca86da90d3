#ifndef QUOR_DIALOGS_MSG_POP_DLG_H
#define QUOR_DIALOGS_MSG_POP_DLG_H

#include "dialogs/modeless_dialog.h"
#include "telephone/collaborators.h"

namespace quor {

// The message pop-up for telephone errors. One window, created for the first message and reused; a
// new message replaces the text.
class CMsgPopDlg final : public CModelessDialog {
 public:
  explicit CMsgPopDlg(const DialogHost& host) noexcept;

  // Sets the owner, Outlook's main window, or null if unknown. Call before the first message.
  void SetOwner(HWND outlook) noexcept { m_outlook = outlook; }

  void ShowMessage(int stringId);

 private:
  HWND m_outlook = nullptr;
};

}  // namespace quor

#endif
