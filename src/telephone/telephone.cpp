#include "telephone/telephone.h"

namespace quor {

CTelephone::CTelephone(const TelephoneCollaborators& collaborators) noexcept
    : m_collaborators(collaborators),
      m_refresh(m_collaborators),
      m_dialler(m_state, m_collaborators),
      m_lines(m_state, m_refresh, m_dialler, m_collaborators),
      m_callerList(m_collaborators),
      m_incomingCalls(m_state, m_callerList, m_collaborators),
      m_events(m_state, m_refresh, m_lines, m_incomingCalls, m_collaborators) {}

void CTelephone::ResetCounters(uint32_t startTime) noexcept {
  m_state.pendingClearLine = kNoLine;
  m_state.cellDialLine = kNoLine;
  m_state.lastDialTime = 0;
  m_state.lastLineClickTime = m_collaborators.clock.TickMilliseconds() - startTime;
}

void CTelephone::ResetDial() {
  m_dialler.StoreDialText({});
  m_state.record.dialState = 0;
}

}  // namespace quor
