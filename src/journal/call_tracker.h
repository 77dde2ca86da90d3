#ifndef QUOR_JOURNAL_CALL_TRACKER_H
#define QUOR_JOURNAL_CALL_TRACKER_H

#include <array>
#include <cstdint>
#include <vector>

#include "journal/call_record.h"
#include "telephone/collaborators.h"

namespace quor {

// Local date and time. It may jump, so durations use the tick clock instead.
class ILocalClock {
 public:
  virtual double Now() noexcept = 0;  // an automation DATE

 protected:
  ~ILocalClock() = default;
};

// Receives each call once, after its end.
class IEndedCalls {
 public:
  virtual void Add(CallRecord call) = 0;

 protected:
  ~IEndedCalls() = default;
};

// Finds the beginning and end of every call in the base's reports. Per channel (Line1, Line2, the
// cell side), with the states of telephone_state.h:
//
//   event                     no call yet            ringing          dialling    connected
//   ring, caller ID           ringing                same or next     ringing     waiting call
//   number dialled            dialling               dialling         dialling    dialling
//   state 3 or 4              connected, outgoing    connected        connected   -
//   state 1                   -                      ends, missed     -           ends
//   state 0, EndAll           -                      ends, missed     dropped     ends
//   any other state           -                      -                -           -
//
// A second ring belongs to the same call unless its caller ID has another number. A dialled number
// that never connects is not a call; it is dropped after a minute or at the base's busy reply.
class CCallTracker final : public ICallObserver {
 public:
  // All must outlive the tracker.
  CCallTracker(ITickClock& ticks, ILocalClock& clock, IEndedCalls& ended) noexcept
      : m_ticks(ticks), m_clock(clock), m_ended(ended) {}

  void OnRing(int slot) override;
  void OnCaller(int slot, const CallParty& party) override;
  void OnDial(int slot, const CallParty& party) override;
  void OnDialRefused() override;
  void OnStates(uint8_t line1, uint8_t line2, uint8_t cell) override;
  // Ends every call, because the base is disconnected or Outlook closes.
  void EndAll() override;

  bool IsRinging() const noexcept;

 private:
  enum class Phase { Ringing, Dialling, Connected };
  struct Call {
    Phase phase;
    uint32_t since;  // milliseconds tick at which the phase began
    CallRecord record;
  };
  using Calls = std::vector<Call>;  // of one channel: one call, or two while a second one waits

  Calls& CallsOf(int slot) noexcept;
  static Call* Find(Calls& calls, Phase phase) noexcept;
  Call& Begin(int slot, Phase phase);
  void Follow(size_t channel, uint8_t state);
  void Connect(size_t channel);
  void EndHeard(Calls& calls);
  void EndAll(Calls& calls);
  void End(Call& call);

  ITickClock& m_ticks;
  ILocalClock& m_clock;
  IEndedCalls& m_ended;
  std::array<Calls, 3> m_calls;  // Line1, Line2, the cell side
};

}  // namespace quor

#endif
