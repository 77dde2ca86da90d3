#include "addin/tick_clock.h"

#include <windows.h>
// timeapi.h needs windows.h before it.
#include <mmsystem.h>

namespace quor {

uint32_t CTickClock::TickMilliseconds() noexcept {
  return timeGetTime();
}

}  // namespace quor
