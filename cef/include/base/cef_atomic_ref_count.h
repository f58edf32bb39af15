// include/base/cef_atomic_ref_count.h of CEF 123, as far as it is used
// here: a reference count for several threads.
#pragma once

#include <atomic>

namespace base {

// A count that several threads may change.
class AtomicRefCount {
 public:
  constexpr AtomicRefCount() = default;
  explicit constexpr AtomicRefCount(int initial_value) : count_(initial_value) {}

  // Both return the value before the change.
  int Increment() { return Increment(1); }
  int Increment(int increment) { return count_.fetch_add(increment, std::memory_order_relaxed); }

  // Returns false when the count has reached zero. What other threads wrote before giving up their
  // reference is visible to the one that reaches zero.
  bool Decrement() { return count_.fetch_sub(1, std::memory_order_acq_rel) != 1; }

  bool IsOne() const { return count_.load(std::memory_order_acquire) == 1; }
  bool IsZero() const { return count_.load(std::memory_order_acquire) == 0; }
  int SubtleRefCountForDebug() const { return count_.load(std::memory_order_relaxed); }

 private:
  std::atomic_int count_{0};
};

}  // namespace base
