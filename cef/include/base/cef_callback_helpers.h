// include/base/cef_callback_helpers.h of CEF 123, as far as it is used here: closures for the end
// of a scope, and callbacks that do nothing.
#pragma once

#include <utility>

#include "include/base/cef_bind.h"
#include "include/base/cef_callback.h"

namespace base {

// Runs a closure at the end of a scope.
class ScopedClosureRunner {
 public:
  ScopedClosureRunner() = default;
  explicit ScopedClosureRunner(OnceClosure closure) : closure_(std::move(closure)) {}
  ScopedClosureRunner(ScopedClosureRunner&& other) noexcept = default;
  ScopedClosureRunner& operator=(ScopedClosureRunner&& other) noexcept {
    if (this != &other) {
      RunAndReset();
      closure_ = std::move(other.closure_);
    }
    return *this;
  }
  ~ScopedClosureRunner() { RunAndReset(); }

  explicit operator bool() const { return !!closure_; }
  void RunAndReset() {
    if (closure_) {
      std::move(closure_).Run();
    }
  }
  void ReplaceClosure(OnceClosure closure) { closure_ = std::move(closure); }
  [[nodiscard]] OnceClosure Release() { return std::move(closure_); }

 private:
  OnceClosure closure_;
};

// Converts to a callback that does nothing.
class DoNothing {
 public:
  template <typename... Args>
  operator RepeatingCallback<void(Args...)>() const {
    return BindRepeating([](Args...) {});
  }
  template <typename... Args>
  operator OnceCallback<void(Args...)>() const {
    return BindOnce([](Args...) {});
  }
};

// Converts to a null callback.
class NullCallback {
 public:
  template <typename Signature>
  operator RepeatingCallback<Signature>() const {
    return RepeatingCallback<Signature>();
  }
  template <typename Signature>
  operator OnceCallback<Signature>() const {
    return OnceCallback<Signature>();
  }
};

template <typename T>
void DeletePointer(T* obj) {
  delete obj;
}

}  // namespace base
