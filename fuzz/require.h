#ifndef QUOR_FUZZ_REQUIRE_H
#define QUOR_FUZZ_REQUIRE_H

#include <cstdlib>

namespace quor {

// Aborts if the property does not hold; the fuzzer then keeps the input.
inline void Require(bool held) {
  if (!held) std::abort();
}

}  // namespace quor

#endif
