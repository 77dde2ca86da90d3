#include "journal/call_tracker.h"

#include <algorithm>
#include <utility>

#include "telephone/telephone_state.h"

namespace quor {
namespace {

constexpr uint32_t kDialPatience = 60000;  // milliseconds
constexpr size_t kMostCalls = 2;           // per channel
constexpr size_t kCellChannel = 2;

void Name(CallRecord& record, int slot, const CallParty& party) {
  record.slot = slot;
  record.name = party.name;
  record.number = party.number;
  record.entryId = party.entryId;
}

}  // namespace

CCallTracker::Calls& CCallTracker::CallsOf(int slot) noexcept {
  return m_calls[slot == 0 || slot == 1 ? static_cast<size_t>(slot) : kCellChannel];
}

CCallTracker::Call* CCallTracker::Find(Calls& calls, Phase phase) noexcept {
  const auto found = std::ranges::find(calls, phase, &Call::phase);
  return found == calls.end() ? nullptr : &*found;
}

CCallTracker::Call& CCallTracker::Begin(int slot, Phase phase) {
  Calls& calls = CallsOf(slot);
  if (calls.size() == kMostCalls) {
    // The end of the oldest call was not reported.
    End(calls.front());
    calls.erase(calls.begin());
  }
  Call call{phase, m_ticks.TickMilliseconds(), {}};
  call.record.slot = slot;
  call.record.start = m_clock.Now();
  calls.push_back(std::move(call));
  return calls.back();
}

void CCallTracker::OnRing(int slot) {
  if (slot == kNoSlot || Find(CallsOf(slot), Phase::Ringing) != nullptr) return;
  Begin(slot, Phase::Ringing);
}

void CCallTracker::OnCaller(int slot, const CallParty& party) {
  if (slot == kNoSlot) return;
  Calls& calls = CallsOf(slot);
  Call* ringing = Find(calls, Phase::Ringing);
  if (ringing != nullptr && !ringing->record.number.empty() &&
      ringing->record.number != party.number) {
    End(*ringing);
    calls.erase(calls.begin() + (ringing - calls.data()));
    ringing = nullptr;
  }
  if (ringing == nullptr) {
    // The base repeats the caller ID of an answered call.
    const Call* talking = Find(calls, Phase::Connected);
    if (talking != nullptr && talking->record.direction == CallDirection::Incoming &&
        talking->record.number == party.number) {
      return;
    }
    ringing = &Begin(slot, Phase::Ringing);
  }
  Name(ringing->record, slot, party);
}

void CCallTracker::OnDial(int slot, const CallParty& party) {
  if (slot == kNoSlot) return;
  std::erase_if(CallsOf(slot), [](const Call& call) { return call.phase == Phase::Dialling; });
  Call& call = Begin(slot, Phase::Dialling);
  call.record.direction = CallDirection::Outgoing;
  Name(call.record, slot, party);
}

// The base does not report which line is busy, so drop the number dialled last.
void CCallTracker::OnDialRefused() {
  Calls* latest = nullptr;
  uint32_t age = UINT32_MAX;
  const uint32_t now = m_ticks.TickMilliseconds();
  for (Calls& calls : m_calls) {
    const Call* dialling = Find(calls, Phase::Dialling);
    if (dialling == nullptr || now - dialling->since > age) continue;
    age = now - dialling->since;
    latest = &calls;
  }
  if (latest != nullptr) {
    std::erase_if(*latest, [](const Call& call) { return call.phase == Phase::Dialling; });
  }
}

void CCallTracker::OnStates(uint8_t line1, uint8_t line2, uint8_t cell) {
  Follow(0, line1);
  Follow(1, line2);
  Follow(kCellChannel, cell);
}

void CCallTracker::Follow(size_t channel, uint8_t state) {
  switch (state) {
    case kStateNoBase:
      return EndAll(m_calls[channel]);
    case kStateIdle:
      return EndHeard(m_calls[channel]);
    case kStateInCall:
    case kStateOtherCall:
      return Connect(channel);
    default:
      return;
  }
}

// A number just dialled may not have reached the line yet.
void CCallTracker::EndHeard(Calls& calls) {
  const uint32_t now = m_ticks.TickMilliseconds();
  std::erase_if(calls, [&](Call& call) {
    if (call.phase == Phase::Dialling) return now - call.since > kDialPatience;
    End(call);
    return true;
  });
}

void CCallTracker::Connect(size_t channel) {
  Calls& calls = m_calls[channel];
  if (Find(calls, Phase::Connected) != nullptr) return;
  if (calls.empty()) {
    // The call was dialled on a handset.
    const int slot = channel == kCellChannel ? kNoSlot : static_cast<int>(channel);
    Begin(slot, Phase::Connected).record.direction = CallDirection::Outgoing;
    return;
  }
  calls.front().phase = Phase::Connected;
  calls.front().since = m_ticks.TickMilliseconds();
}

void CCallTracker::EndAll() {
  for (Calls& calls : m_calls)
    EndAll(calls);
}

void CCallTracker::EndAll(Calls& calls) {
  for (Call& call : calls)
    End(call);
  calls.clear();
}

void CCallTracker::End(Call& call) {
  if (call.phase == Phase::Dialling) return;
  call.record.answered = call.phase == Phase::Connected;
  if (call.record.answered) call.record.seconds = (m_ticks.TickMilliseconds() - call.since) / 1000;
  m_ended.Add(std::move(call.record));
}

bool CCallTracker::IsRinging() const noexcept {
  return std::ranges::any_of(m_calls, [](const Calls& calls) {
    return std::ranges::any_of(calls,
                               [](const Call& call) { return call.phase == Phase::Ringing; });
  });
}

}  // namespace quor
