#ifndef QUOR_FUZZ_REQUIRE_H
#define QUOR_FUZZ_REQUIRE_H

#include <cstdlib>

namespace quor {

// The fuzzer keeps the input for which a property does not hold.
inline void Require(bool held) {
  if (!held) std::abort();
}

}  // namespace quor

#endif
