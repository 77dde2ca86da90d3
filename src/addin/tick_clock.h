#ifndef QUOR_ADDIN_TICK_CLOCK_H
#define QUOR_ADDIN_TICK_CLOCK_H

#include "telephone/collaborators.h"

namespace quor {

// The system's milliseconds tick.
class CTickClock final : public ITickClock {
 public:
  uint32_t TickMilliseconds() noexcept override;
};

}  // namespace quor

#endif
