#ifndef QUOR_WORKBENCH_HOST_CLOCK_H
#define QUOR_WORKBENCH_HOST_CLOCK_H

#include <chrono>

namespace quor::workbench {

// Milliseconds since some moment before the program's start.
inline double MillisecondsNow() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}

}  // namespace quor::workbench

#endif
