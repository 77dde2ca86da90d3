#include "bench/contacts/counted_memory.h"

#include <cstdlib>
#include <new>

namespace {

// Size of the header before each block; keeps the block aligned.
constexpr size_t kHeader = alignof(std::max_align_t);

size_t g_bytesInUse = 0;

}  // namespace

void* operator new(size_t size) {
  void* const block = std::malloc(size + kHeader);
  if (block == nullptr) throw std::bad_alloc();
  *static_cast<size_t*>(block) = size;
  g_bytesInUse += size;
  return static_cast<char*>(block) + kHeader;
}

void operator delete(void* memory) noexcept {
  if (memory == nullptr) return;
  void* const block = static_cast<char*>(memory) - kHeader;
  g_bytesInUse -= *static_cast<size_t*>(block);
  std::free(block);
}

void operator delete(void* memory, size_t /*size*/) noexcept {
  operator delete(memory);
}

size_t quor::BytesInUse() noexcept {
  return g_bytesInUse;
}
