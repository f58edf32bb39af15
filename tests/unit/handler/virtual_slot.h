// The place of a virtual operation among those of its class.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kzcef::testing {

// How this compiler's ABI writes a pointer to a virtual member: the first word is 1 plus the offset
// of its slot in the table.
template <typename Operation>
int VirtualSlot(Operation operation) {
  std::uintptr_t word = 0;
  static_assert(sizeof(operation) == 2 * sizeof(word));
  std::memcpy(&word, &operation, sizeof(word));
  return word % 2 == 1 ? static_cast<int>((word - 1) / sizeof(void*)) : -1;
}

}  // namespace kzcef::testing
