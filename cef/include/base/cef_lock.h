// include/base/cef_lock.h of CEF 123, as far as it is used here: a lock,
// and its holding and releasing for a scope.
#pragma once

#include <mutex>

namespace base {

// A lock that is not recursive.
class Lock {
 public:
  Lock() = default;
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  void Acquire() { mutex_.lock(); }
  void Release() { mutex_.unlock(); }
  bool Try() { return mutex_.try_lock(); }
  // Nothing is checked: the mutex does not know its owner.
  void AssertAcquired() const {}

 private:
  std::mutex mutex_;
};

// Holds a lock for a scope.
class AutoLock {
 public:
  struct AlreadyAcquired {};

  explicit AutoLock(Lock& lock) : lock_(lock) { lock_.Acquire(); }
  AutoLock(Lock& lock, const AlreadyAcquired&) : lock_(lock) {}
  AutoLock(const AutoLock&) = delete;
  AutoLock& operator=(const AutoLock&) = delete;
  ~AutoLock() { lock_.Release(); }

 private:
  Lock& lock_;
};

// Releases a held lock for a scope.
class AutoUnlock {
 public:
  explicit AutoUnlock(Lock& lock) : lock_(lock) { lock_.Release(); }
  AutoUnlock(const AutoUnlock&) = delete;
  AutoUnlock& operator=(const AutoUnlock&) = delete;
  ~AutoUnlock() { lock_.Acquire(); }

 private:
  Lock& lock_;
};

}  // namespace base
