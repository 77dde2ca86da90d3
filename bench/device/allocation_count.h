#ifndef QUOR_BENCH_DEVICE_ALLOCATION_COUNT_H
#define QUOR_BENCH_DEVICE_ALLOCATION_COUNT_H

#include <cstddef>

namespace quor {

// Number of calls of operator new so far. Linking allocation_count.cpp replaces the operator.
size_t AllocationCount() noexcept;

}  // namespace quor

#endif
