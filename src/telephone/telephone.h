#ifndef QUOR_TELEPHONE_TELEPHONE_H
#define QUOR_TELEPHONE_TELEPHONE_H

#include <cstdint>
#include <string>

#include "telephone/caller_list.h"
#include "telephone/collaborators.h"
#include "telephone/control_refresh.h"
#include "telephone/dialler.h"
#include "telephone/event_dispatcher.h"
#include "telephone/incoming_calls.h"
#include "telephone/line_control.h"
#include "telephone/telephone_state.h"

namespace quor {

// The telephone: the base's reports, the user's actions and what follows from them. Builds and
// connects its parts, and gives the rest of the add-in access to them. Single-threaded.
class CTelephone {
 public:
  explicit CTelephone(const TelephoneCollaborators& collaborators) noexcept;
  CTelephone(const CTelephone&) = delete;
  CTelephone& operator=(const CTelephone&) = delete;

  // Outlook's major version, known after the add-in is connected.
  void SetAppVersion(int32_t appVersion) noexcept { m_state.appVersion = appVersion; }
  // Start-up: resets the click and dial times and the lines of pending requests. `startTime` is the
  // device controller's.
  void ResetCounters(uint32_t startTime) noexcept;
  // Start-up: clears the dial string and allows no dialling yet.
  void ResetDial();

  // For IsControlEnabled, GetLineCaption and IsCellItemEnabled (control_rules.h), the cells' names
  // and the click and dial times.
  const TelephoneState& State() const noexcept { return m_state; }

  CEventDispatcher& Events() noexcept { return m_events; }
  CLineControl& Lines() noexcept { return m_lines; }
  CDialler& Dialler() noexcept { return m_dialler; }
  CControlRefresh& Refresh() noexcept { return m_refresh; }
  CCallerList& CallerList() noexcept { return m_callerList; }
  CIncomingCalls& IncomingCalls() noexcept { return m_incomingCalls; }

 private:
  TelephoneCollaborators m_collaborators;
  TelephoneState m_state;
  CControlRefresh m_refresh;
  CDialler m_dialler;
  CLineControl m_lines;
  CCallerList m_callerList;
  CIncomingCalls m_incomingCalls;
  CEventDispatcher m_events;
};

}  // namespace quor

#endif
