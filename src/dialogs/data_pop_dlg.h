#ifndef QUOR_DIALOGS_DATA_POP_DLG_H
#define QUOR_DIALOGS_DATA_POP_DLG_H

#include "dialogs/modeless_dialog.h"

namespace quor {

// The contact-loading window: says that a long load is under way.
class CDataPopDlg final : public CModelessDialog {
 public:
  explicit CDataPopDlg(const DialogHost& host) noexcept;

  // Creates the window, hidden. The owner is Outlook's main window; null when there is none.
  HRESULT Create(HWND outlook) noexcept;
  // Drawn when this returns, so that it can be read while the load keeps Outlook busy.
  void Show() noexcept;

 private:
  HWND m_outlook = nullptr;
};

}  // namespace quor

#endif
