#ifndef QUOR_ADDIN_SLICE_CLOCK_H
#define QUOR_ADDIN_SLICE_CLOCK_H

#include <cstdint>

namespace quor {

// Measures the slices of long work on Outlook's thread. The milliseconds ticks are too coarse for
// this: most of them move every 16 ms.
class CSliceClock {
 public:
  // A slice, the last call into Outlook included, is not to take more than 30 ms.
  static constexpr int64_t kMilliseconds = 28;

  CSliceClock() noexcept;

  void Start() noexcept;
  bool IsOver() const noexcept;

 private:
  int64_t m_length;  // in counts of the system's performance counter
  int64_t m_end = 0;
};

}  // namespace quor

#endif
