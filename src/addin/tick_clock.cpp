#include "addin/tick_clock.h"

#include <windows.h>
// timeapi.h requires windows.h first.
#include <mmsystem.h>
#include <oleauto.h>

namespace quor {

uint32_t CTickClock::TickMilliseconds() noexcept {
  return timeGetTime();
}

double CLocalClock::Now() noexcept {
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  double date = 0;
  SystemTimeToVariantTime(&now, &date);
  return date;
}

}  // namespace quor
