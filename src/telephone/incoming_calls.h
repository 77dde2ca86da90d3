#ifndef QUOR_TELEPHONE_INCOMING_CALLS_H
#define QUOR_TELEPHONE_INCOMING_CALLS_H

#include <optional>
#include <string>
#include <string_view>

#include "telephone/caller_list.h"
#include "telephone/collaborators.h"
#include "telephone/telephone_state.h"

namespace quor {

// Identifies an incoming caller, records the call, and shows the caller in the way chosen for the
// line or cell.
class CIncomingCalls {
 public:
  CIncomingCalls(TelephoneState& state, CCallerList& callerList,
                 const TelephoneCollaborators& collaborators) noexcept
      : m_state(state), m_callerList(callerList), m_collaborators(collaborators) {}

  // Call after a caller-ID record was copied into the caller information.
  void OnCallerId(bool longDistance);
  // Call after a pop-up record was copied into the caller information.
  void OnPopup();
  // Hides the caller window. Always returns 0.
  int OnClosePopup();

  // The number of the last caller-ID report, unchanged; empty if it was withheld.
  const std::string& LastCallerNumber() const noexcept { return m_lastCallerNumber; }

 private:
  struct Caller {
    CallerInformation information;
    bool longDistance;
    std::string entryId;  // empty: not a contact
    std::wstring name;
    std::wstring number;
    std::optional<MatchReason> reason{};  // why the name is the caller's
  };

  std::optional<CallerMatch> FindPhoneNumber(bool check, std::string_view number);
  void Identify(const CallerMatch& match, Caller& caller);
  void DisplayContactItem(const Caller& caller);
  void DisplayNewContactItem(const Caller& caller);
  // Shows the caller in the way chosen for the line, unless that is the contact's form: false then.
  bool ShowWithoutForm(const Caller& caller);
  bool IsCurrent(const Caller& caller) const noexcept;
  void ShowCallerWindow(const Caller& caller, int slot);
  void LogForm(FormResult result);

  TelephoneState& m_state;
  CCallerList& m_callerList;
  const TelephoneCollaborators& m_collaborators;
  std::string m_lastCallerNumber;
};

}  // namespace quor

#endif
