#include "telephone/control_refresh.h"

namespace quor {

void CControlRefresh::PostSetBarState(bool connected) noexcept {
  m_collaborators.log.Write("CAddin::PostSetBarState\n");
  if (!m_collaborators.queue.PostRequest(WindowRequest::SetBarState, connected ? 1 : 0)) {
    m_collaborators.log.Write("CAddin::PostSetBarState post failed\n");
  }
}

void CControlRefresh::OnSetBarState(uint32_t connected) {
  m_collaborators.log.Write("CAddin::OnSetBarState\n");
  SetBarState(connected);
}

void CControlRefresh::SetBarState(uint32_t connected) {
  m_collaborators.log.Write("CAddin::SetBarState\n");
  if (connected == 1) {
    m_collaborators.controls.SetToolBarState();
  } else {
    m_collaborators.controls.DisableControls();
  }
}

}  // namespace quor
