// Replaces the program's operator new by one that fails for the size that a test names.

#include "unit/bridge/failing_allocation.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> g_failing_size = 0;

}  // namespace

namespace kzcef::testing {

void FailAllocationsOf(std::size_t size) {
  g_failing_size = size;
}

}  // namespace kzcef::testing

void* operator new(std::size_t size) {
  if (size == 0) {
    size = 1;
  }
  if (size == g_failing_size) {
    throw std::bad_alloc();
  }
  if (void* const memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
