#ifndef QUOR_ADDIN_SESSION_CLOCK_H
#define QUOR_ADDIN_SESSION_CLOCK_H

#include <cstdint>
#include <string>

#include "module/session_times.h"
#include "telephone/collaborators.h"

namespace quor {

// Measures how long Outlook waits for the add-in: at its start, when the folder changes, and while
// it closes. Outlook disables add-ins that take too long.
class CSessionClock {
 public:
  enum class Phase { Start, FolderSwitch, Shutdown };

  // Measures from its construction to its destruction; the clock must outlive it.
  class CSpan {
   public:
    CSpan(CSessionClock& clock, Phase phase) noexcept
        : m_clock(clock), m_phase(phase), m_began(clock.m_clock.TickMilliseconds()) {}
    ~CSpan() { m_clock.Add(m_phase, m_clock.m_clock.TickMilliseconds() - m_began); }
    CSpan(const CSpan&) = delete;
    CSpan& operator=(const CSpan&) = delete;

   private:
    CSessionClock& m_clock;
    Phase m_phase;
    uint32_t m_began;
  };

  explicit CSessionClock(ITickClock& clock) noexcept : m_clock(clock) {}
  CSessionClock(const CSessionClock&) = delete;
  CSessionClock& operator=(const CSessionClock&) = delete;

  // Starts a new session.
  void Begin() noexcept;

  // Adds the session, or replaces it, in the file beside the configuration file of that path (ANSI
  // code page). Does nothing before Begin or without a path. A file that cannot be written is
  // ignored: the telephone works without it.
  void Write(const std::string& configurationPath) const noexcept;

 private:
  void Add(Phase phase, uint32_t milliseconds) noexcept;

  ITickClock& m_clock;
  SessionTimes m_session;
};

}  // namespace quor

#endif
