#ifndef QUOR_BENCH_CONTACTS_COUNTED_MEMORY_H
#define QUOR_BENCH_CONTACTS_COUNTED_MEMORY_H

#include <cstddef>

namespace quor {

// Bytes allocated with operator new and not yet freed, in the whole program.
size_t BytesInUse() noexcept;

}  // namespace quor

#endif
