// include/base/cef_callback.h of CEF 123, as far as it is used
// here: callbacks that run once or repeatedly.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "include/base/cef_callback_forward.h"

namespace base {
namespace cef_internal {

// What a callback holds: a function with its bound arguments, behind one virtual call.
template <typename Signature>
struct CallbackState;

template <typename R, typename... Args>
struct CallbackState<R(Args...)> {
  virtual ~CallbackState() = default;
  virtual R Run(Args... args) = 0;
};

}  // namespace cef_internal

// A bound function that may run several times. Copies share what is bound.
template <typename R, typename... Args>
class RepeatingCallback<R(Args...)> {
 public:
  using ResultType = R;
  using RunType = R(Args...);

  RepeatingCallback() = default;
  RepeatingCallback(std::nullptr_t) = delete;
  explicit RepeatingCallback(std::shared_ptr<cef_internal::CallbackState<RunType>> state)
      : state_(std::move(state)) {}

  bool is_null() const { return !state_; }
  explicit operator bool() const { return !is_null(); }
  void Reset() { state_.reset(); }
  bool operator==(const RepeatingCallback& other) const { return state_ == other.state_; }
  bool operator!=(const RepeatingCallback& other) const { return state_ != other.state_; }

  R Run(Args... args) const& { return state_->Run(std::forward<Args>(args)...); }
  // Gives up what is bound before it runs, so that it dies with this run.
  R Run(Args... args) && {
    RepeatingCallback self = std::move(*this);
    return self.state_->Run(std::forward<Args>(args)...);
  }

 private:
  friend class OnceCallback<R(Args...)>;

  std::shared_ptr<cef_internal::CallbackState<RunType>> state_;
};

// A bound function that runs once: std::move(callback).Run(...), which leaves it null.
template <typename R, typename... Args>
class OnceCallback<R(Args...)> {
 public:
  using ResultType = R;
  using RunType = R(Args...);

  OnceCallback() = default;
  OnceCallback(std::nullptr_t) = delete;
  explicit OnceCallback(std::unique_ptr<cef_internal::CallbackState<RunType>> state)
      : state_(std::move(state)) {}
  OnceCallback(const OnceCallback&) = delete;
  OnceCallback& operator=(const OnceCallback&) = delete;
  OnceCallback(OnceCallback&&) noexcept = default;
  OnceCallback& operator=(OnceCallback&&) noexcept = default;
  OnceCallback(RepeatingCallback<RunType> other) : state_(std::move(other.state_)) {}
  OnceCallback& operator=(RepeatingCallback<RunType> other) {
    state_ = std::move(other.state_);
    return *this;
  }

  bool is_null() const { return !state_; }
  explicit operator bool() const { return !is_null(); }
  void Reset() { state_.reset(); }

  R Run(Args...) const& {
    static_assert(!sizeof(*this), "A OnceCallback is run as std::move(callback).Run(...).");
  }
  R Run(Args... args) && {
    OnceCallback self = std::move(*this);
    return self.state_->Run(std::forward<Args>(args)...);
  }

 private:
  // Shared only with the RepeatingCallback that this one may have been made of.
  std::shared_ptr<cef_internal::CallbackState<RunType>> state_;
};

}  // namespace base
