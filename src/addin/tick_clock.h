#ifndef QUOR_ADDIN_TICK_CLOCK_H
#define QUOR_ADDIN_TICK_CLOCK_H

#include "journal/call_tracker.h"
#include "telephone/collaborators.h"

namespace quor {

// The system's tick count in milliseconds.
class CTickClock final : public ITickClock {
 public:
  uint32_t TickMilliseconds() noexcept override;
};

// The system's local date and time.
class CLocalClock final : public ILocalClock {
 public:
  double Now() noexcept override;
};

}  // namespace quor

#endif
