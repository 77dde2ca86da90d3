#ifndef QUOR_DIALOGS_DATA_POP_DLG_H
#define QUOR_DIALOGS_DATA_POP_DLG_H

#include "dialogs/modeless_dialog.h"

namespace quor {

// The contact-loading window, shown during a long load.
class CDataPopDlg final : public CModelessDialog {
 public:
  explicit CDataPopDlg(const DialogHost& host) noexcept;

  // Creates the window hidden. The owner is Outlook's main window, or null.
  HRESULT Create(HWND outlook) noexcept;
  // Paints the window before returning, so that it is readable while the load keeps Outlook busy.
  void Show() noexcept;

 private:
  HWND m_outlook = nullptr;
};

}  // namespace quor

#endif
