// include/base/cef_ref_counted.h of CEF 123, as far as it is used here:
// bases of objects that count their references.
#pragma once

#include <utility>

#include "include/base/cef_atomic_ref_count.h"
#include "include/base/cef_build.h"
#include "include/base/cef_logging.h"
#include "include/base/cef_scoped_refptr.h"

namespace base {

template <class T, typename Traits>
class RefCounted;

template <typename T>
struct DefaultRefCountedTraits {
  static void Destruct(const T* x) { RefCounted<T, DefaultRefCountedTraits<T>>::DeleteInternal(x); }
};

// Base of objects whose references are counted on one thread only. The count starts at zero; the
// last Release deletes.
template <class T, typename Traits = DefaultRefCountedTraits<T>>
class RefCounted {
 public:
  RefCounted() = default;
  RefCounted(const RefCounted&) = delete;
  RefCounted& operator=(const RefCounted&) = delete;

  void AddRef() const { ++ref_count_; }
  void Release() const {
    if (--ref_count_ == 0) {
      Traits::Destruct(static_cast<const T*>(this));
    }
  }
  bool HasOneRef() const { return ref_count_ == 1; }
  bool HasAtLeastOneRef() const { return ref_count_ >= 1; }

 protected:
  ~RefCounted() = default;

 private:
  friend struct DefaultRefCountedTraits<T>;

  template <typename U>
  static void DeleteInternal(const U* x) {
    delete x;
  }

  mutable int ref_count_ = 0;
};

template <class T, typename Traits>
class RefCountedThreadSafe;

template <typename T>
struct DefaultRefCountedThreadSafeTraits {
  static void Destruct(const T* x) {
    RefCountedThreadSafe<T, DefaultRefCountedThreadSafeTraits<T>>::DeleteInternal(x);
  }
};

// The same for objects that several threads share. |Traits| may delete on a certain thread.
template <class T, typename Traits = DefaultRefCountedThreadSafeTraits<T>>
class RefCountedThreadSafe {
 public:
  explicit RefCountedThreadSafe() = default;
  RefCountedThreadSafe(const RefCountedThreadSafe&) = delete;
  RefCountedThreadSafe& operator=(const RefCountedThreadSafe&) = delete;

  void AddRef() const { ref_count_.Increment(); }
  void Release() const {
    if (!ref_count_.Decrement()) {
      Traits::Destruct(static_cast<const T*>(this));
    }
  }
  bool HasOneRef() const { return ref_count_.IsOne(); }
  bool HasAtLeastOneRef() const { return !ref_count_.IsZero(); }

 protected:
  ~RefCountedThreadSafe() = default;

 private:
  friend struct DefaultRefCountedThreadSafeTraits<T>;

  template <typename U>
  static void DeleteInternal(const U* x) {
    delete x;
  }

  mutable AtomicRefCount ref_count_;
};

// A value that is shared by counted references.
template <typename T>
class RefCountedData : public RefCountedThreadSafe<RefCountedData<T>> {
 public:
  RefCountedData() : data() {}
  RefCountedData(const T& in_value) : data(in_value) {}
  RefCountedData(T&& in_value) : data(std::move(in_value)) {}
  template <typename... Args>
  explicit RefCountedData(std::in_place_t, Args&&... args) : data(std::forward<Args>(args)...) {}

  T data;

 private:
  friend class RefCountedThreadSafe<RefCountedData<T>>;
  friend struct DefaultRefCountedThreadSafeTraits<RefCountedData<T>>;
  ~RefCountedData() = default;
};

}  // namespace base
