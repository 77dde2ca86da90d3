#include "dialogs/data_pop_dlg.h"

#include "resources/resource_ids.h"

namespace quor {

CDataPopDlg::CDataPopDlg(const DialogHost& host) noexcept : CModelessDialog(host, IDD_LOADING) {}

HRESULT CDataPopDlg::Create(HWND outlook) noexcept {
  m_outlook = outlook;
  return CreateHidden(outlook);
}

void CDataPopDlg::Show() noexcept {
  ShowInFront(m_outlook, CentreOver);
}

}  // namespace quor
