// include/base/cef_weak_ptr.h of CEF 123, as far as it is used here:
// pointers that become null when their object dies.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include "include/base/cef_logging.h"

namespace base {

template <typename T>
class WeakPtrFactory;

// A pointer that becomes null with its object. Used on the thread that owns the object.
template <typename T>
class WeakPtr {
 public:
  WeakPtr() = default;
  WeakPtr(std::nullptr_t) {}
  template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  WeakPtr(const WeakPtr<U>& other) : alive_(other.alive_), ptr_(other.ptr_) {}
  template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  WeakPtr(WeakPtr<U>&& other) noexcept
      : alive_(std::move(other.alive_)), ptr_(std::exchange(other.ptr_, nullptr)) {}

  T* get() const { return alive_ && *alive_ ? ptr_ : nullptr; }
  T& operator*() const {
    CHECK(get());
    return *ptr_;
  }
  T* operator->() const {
    CHECK(get());
    return ptr_;
  }
  explicit operator bool() const { return get() != nullptr; }

  void reset() {
    alive_.reset();
    ptr_ = nullptr;
  }
  bool MaybeValid() const { return get() != nullptr; }
  bool WasInvalidated() const { return ptr_ && !get(); }

 private:
  template <typename U>
  friend class WeakPtr;
  friend class WeakPtrFactory<T>;

  WeakPtr(std::shared_ptr<std::atomic_bool> alive, T* ptr) : alive_(std::move(alive)), ptr_(ptr) {}

  std::shared_ptr<std::atomic_bool> alive_;
  T* ptr_ = nullptr;
};

template <class T>
bool operator==(const WeakPtr<T>& weak_ptr, std::nullptr_t) {
  return weak_ptr.get() == nullptr;
}

// Hands out weak pointers to |ptr| and ends them when it dies. Keep it as the last member, so that
// the pointers are gone before the other members.
template <class T>
class WeakPtrFactory {
 public:
  WeakPtrFactory() = delete;
  explicit WeakPtrFactory(T* ptr) : ptr_(ptr) {}
  WeakPtrFactory(const WeakPtrFactory&) = delete;
  WeakPtrFactory& operator=(const WeakPtrFactory&) = delete;
  ~WeakPtrFactory() { *alive_ = false; }

  WeakPtr<T> GetWeakPtr() const { return WeakPtr<T>(alive_, ptr_); }
  // Ends the pointers handed out so far; new ones may be taken.
  void InvalidateWeakPtrs() {
    *alive_ = false;
    alive_ = std::make_shared<std::atomic_bool>(true);
  }
  bool HasWeakPtrs() const { return alive_.use_count() > 1; }

 private:
  std::shared_ptr<std::atomic_bool> alive_ = std::make_shared<std::atomic_bool>(true);
  T* ptr_;
};

// Base of objects that hand out weak pointers to themselves.
template <class T>
class SupportsWeakPtr {
 public:
  SupportsWeakPtr() = default;
  SupportsWeakPtr(const SupportsWeakPtr&) = delete;
  SupportsWeakPtr& operator=(const SupportsWeakPtr&) = delete;

  WeakPtr<T> AsWeakPtr() { return factory_.GetWeakPtr(); }

 protected:
  ~SupportsWeakPtr() = default;

 private:
  WeakPtrFactory<T> factory_{static_cast<T*>(this)};
};

}  // namespace base
