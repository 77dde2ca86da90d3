#include "dialogs/msg_pop_dlg.h"

#include "com/com_boundary.h"
#include "resources/resource_ids.h"

namespace quor {

CMsgPopDlg::CMsgPopDlg(const DialogHost& host) noexcept : CModelessDialog(host, IDD_MESSAGE) {}

void CMsgPopDlg::ShowMessage(int stringId) {
  GuardCall(m_log, "message pop-up", [&] {
    RequireWindow(m_outlook);
    SetText(Control(IDC_MESSAGE_TEXT), m_resources.Text(stringId));
    ShowInFront(m_outlook, CentreOver);
  });
}

}  // namespace quor
