#ifndef QUOR_TELEPHONE_EVENT_DISPATCHER_H
#define QUOR_TELEPHONE_EVENT_DISPATCHER_H

#include <cstdint>

#include "telephone/collaborators.h"
#include "telephone/control_refresh.h"
#include "telephone/incoming_calls.h"
#include "telephone/line_control.h"
#include "telephone/telephone_state.h"

namespace quor {

// Entry point of all events of the base.
class CEventDispatcher {
 public:
  CEventDispatcher(TelephoneState& state, CControlRefresh& refresh, CLineControl& lines,
                   CIncomingCalls& incomingCalls,
                   const TelephoneCollaborators& collaborators) noexcept
      : m_state(state),
        m_refresh(refresh),
        m_lines(lines),
        m_incomingCalls(incomingCalls),
        m_collaborators(collaborators) {}

  // Handles the registered message: a DeviceEvent code and, for per-line events, a line type. Both
  // come from a window message, so any value may arrive; unknown ones do nothing. Always returns 0.
  int OnEventGet(uint32_t event, uint32_t lineType);

 private:
  void OnConnected();
  void OnDisconnected();
  void OnStatus();
  void OnReceiveCall(uint32_t lineType);
  void OnCallerId(uint32_t lineType);
  void OnClosePopupEvent(uint32_t lineType);
  void OnCellRegistration();
  void ShowBusyReply();
  void FollowCall(const StatusRecord& report);

  void SetUSBRecvCIDInfo(const CallerIdRecord& record) noexcept;
  void SetUSBRecvCPOPUPInfo(const LastCallerRecord& record) noexcept;
  void SetUSBRecvCellRegistInfo(const CellRegistrationRecord& record) noexcept;

  TelephoneState& m_state;
  CControlRefresh& m_refresh;
  CLineControl& m_lines;
  CIncomingCalls& m_incomingCalls;
  const TelephoneCollaborators& m_collaborators;
};

}  // namespace quor

#endif
