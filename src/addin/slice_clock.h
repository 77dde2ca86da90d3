#ifndef QUOR_ADDIN_SLICE_CLOCK_H
#define QUOR_ADDIN_SLICE_CLOCK_H

#include <cstdint>

namespace quor {

// Measures slices of long work on Outlook's thread. The millisecond ticks are too coarse: most
// advance only every 16 ms.
class CSliceClock {
 public:
  // Leaves room for the last call into Outlook: a slice must not take more than 30 ms.
  static constexpr int64_t kMilliseconds = 28;

  CSliceClock() noexcept;

  void Start() noexcept;
  bool IsOver() const noexcept;

 private:
  int64_t m_length;  // in counts of the performance counter
  int64_t m_end = 0;
};

}  // namespace quor

#endif
