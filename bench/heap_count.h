// Counts the heap allocations of the program that links it.
#pragma once

namespace kzbench {

// Counts, while it lives, what `new` and COM's allocator (BSTRs among it) hand out. One at a time;
// the thread must have initialised COM. Throws std::runtime_error when it cannot count.
class HeapCount {
 public:
  HeapCount();
  ~HeapCount();
  HeapCount(const HeapCount&) = delete;
  HeapCount& operator=(const HeapCount&) = delete;

  // Of all threads, since it was made.
  long long allocations() const;
};

}  // namespace kzbench
