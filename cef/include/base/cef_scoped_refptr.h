// include/base/cef_scoped_refptr.h of CEF 123, as far as it is used
// here: the pointer that holds a reference.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <type_traits>
#include <utility>

// A counted reference to an object with AddRef and Release.
template <class T>
class scoped_refptr {
 public:
  typedef T element_type;

  constexpr scoped_refptr() = default;
  constexpr scoped_refptr(std::nullptr_t) {}
  scoped_refptr(T* p) : ptr_(p) {
    if (ptr_) {
      ptr_->AddRef();
    }
  }
  scoped_refptr(const scoped_refptr& r) : scoped_refptr(r.ptr_) {}
  template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  scoped_refptr(const scoped_refptr<U>& r) : scoped_refptr(r.get()) {}
  scoped_refptr(scoped_refptr&& r) noexcept : ptr_(r.release()) {}
  template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  scoped_refptr(scoped_refptr<U>&& r) noexcept : ptr_(r.release()) {}

  ~scoped_refptr() {
    if (ptr_) {
      ptr_->Release();
    }
  }

  scoped_refptr& operator=(std::nullptr_t) {
    reset();
    return *this;
  }
  scoped_refptr& operator=(T* p) { return *this = scoped_refptr(p); }
  scoped_refptr& operator=(scoped_refptr r) noexcept {
    swap(r);
    return *this;
  }

  T* get() const { return ptr_; }
  T& operator*() const { return *ptr_; }
  T* operator->() const { return ptr_; }
  explicit operator bool() const { return ptr_ != nullptr; }

  void reset() { scoped_refptr().swap(*this); }
  // Returns the pointer and gives up the reference, which the caller must release.
  [[nodiscard]] T* release() { return std::exchange(ptr_, nullptr); }
  void swap(scoped_refptr& r) noexcept { std::swap(ptr_, r.ptr_); }

  template <typename U>
  bool operator==(const scoped_refptr<U>& rhs) const {
    return ptr_ == rhs.get();
  }
  template <typename U>
  bool operator!=(const scoped_refptr<U>& rhs) const {
    return ptr_ != rhs.get();
  }
  template <typename U>
  bool operator<(const scoped_refptr<U>& rhs) const {
    return ptr_ < rhs.get();
  }

 protected:
  T* ptr_ = nullptr;
};

template <typename T, typename U>
bool operator==(const scoped_refptr<T>& lhs, const U* rhs) {
  return lhs.get() == rhs;
}
template <typename T, typename U>
bool operator==(const T* lhs, const scoped_refptr<U>& rhs) {
  return lhs == rhs.get();
}
template <typename T>
bool operator==(const scoped_refptr<T>& lhs, std::nullptr_t) {
  return !lhs;
}
template <typename T>
bool operator==(std::nullptr_t, const scoped_refptr<T>& rhs) {
  return !rhs;
}
template <typename T, typename U>
bool operator!=(const scoped_refptr<T>& lhs, const U* rhs) {
  return lhs.get() != rhs;
}
template <typename T, typename U>
bool operator!=(const T* lhs, const scoped_refptr<U>& rhs) {
  return lhs != rhs.get();
}
template <typename T>
bool operator!=(const scoped_refptr<T>& lhs, std::nullptr_t) {
  return static_cast<bool>(lhs);
}
template <typename T>
bool operator!=(std::nullptr_t, const scoped_refptr<T>& rhs) {
  return static_cast<bool>(rhs);
}

template <typename T>
std::ostream& operator<<(std::ostream& out, const scoped_refptr<T>& p) {
  return out << p.get();
}

template <typename T>
void swap(scoped_refptr<T>& lhs, scoped_refptr<T>& rhs) noexcept {
  lhs.swap(rhs);
}

namespace base {

template <typename T, typename... Args>
scoped_refptr<T> MakeRefCounted(Args&&... args) {
  return scoped_refptr<T>(new T(std::forward<Args>(args)...));
}

template <typename T>
scoped_refptr<T> WrapRefCounted(T* t) {
  return scoped_refptr<T>(t);
}

}  // namespace base
