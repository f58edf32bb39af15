// The way in which a fuzz target reports that a property does not hold.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace kzfuzz {

// Ends the run, so that the fuzzer keeps the input, unless `holds`.
inline void Require(bool holds, const char* property) {
  if (holds)
    return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

}  // namespace kzfuzz
