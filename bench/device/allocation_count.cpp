#include "bench/device/allocation_count.h"

#include <cstdlib>
#include <new>

namespace {
size_t g_allocations = 0;
}

namespace quor {
size_t AllocationCount() noexcept {
  return g_allocations;
}
}  // namespace quor

void* operator new(size_t size) {
  ++g_allocations;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
  std::free(memory);
}
