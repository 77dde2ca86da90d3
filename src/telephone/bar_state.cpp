#include "telephone/bar_state.h"

namespace quor {

void CBarState::PostSetBarState(bool connected) noexcept {
  m_with.log.Write("CAddin::PostSetBarState\n");
  if (!m_with.queue.PostRequest(WindowRequest::SetBarState, connected ? 1 : 0)) {
    m_with.log.Write("CAddin::PostSetBarState post failed\n");
  }
}

void CBarState::OnSetBarState(uint32_t connected) {
  m_with.log.Write("CAddin::OnSetBarState\n");
  SetBarState(connected);
}

void CBarState::SetBarState(uint32_t connected) {
  m_with.log.Write("CAddin::SetBarState\n");
  if (connected == 1) {
    m_with.controls.SetToolBarState();
  } else {
    m_with.controls.DisableControls();
  }
}

void CBarState::PostClearDialNumber() noexcept {
  m_with.log.Write("CAddin::PostClearDialNumber\n");
  if (!m_with.queue.PostRequest(WindowRequest::ClearDial, 0)) {
    m_with.log.Write("CAddin::PostClearDialNumber post failed\n");
  }
}

}  // namespace quor
