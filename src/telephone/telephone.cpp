#include "telephone/telephone.h"

namespace quor {

CTelephone::CTelephone(const TelephoneCollaborators& with) noexcept
    : m_with(with),
      m_refresh(m_with),
      m_dialler(m_state, m_with),
      m_lines(m_state, m_refresh, m_dialler, m_with),
      m_callerList(m_with),
      m_incomingCalls(m_state, m_callerList, m_with),
      m_events(m_state, m_refresh, m_lines, m_incomingCalls, m_with) {}

void CTelephone::ResetCounters(uint32_t startTime) noexcept {
  m_state.pendingClearLine = kNoLine;
  m_state.cellDialLine = kNoLine;
  m_state.lastDialTime = 0;
  m_state.lastLineClickTime = m_with.clock.TickMilliseconds() - startTime;
}

void CTelephone::ResetDial() {
  m_dialler.StoreBoxText({});
  m_state.record.dialState = 0;
}

}  // namespace quor
