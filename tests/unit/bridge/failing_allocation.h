// Running out of memory at a chosen moment.
#pragma once

#include <cstddef>

namespace kzcef::testing {

// From now on the program's allocations of exactly `size` bytes throw std::bad_alloc; 0 ends that.
void FailAllocationsOf(std::size_t size);

}  // namespace kzcef::testing
