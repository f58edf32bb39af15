// How base::BindOnce and base::BindRepeating store and call what they bind.
#pragma once

#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "include/base/cef_callback.h"
#include "include/base/cef_scoped_refptr.h"
#include "include/base/cef_weak_ptr.h"

namespace base {
namespace cef_internal {

// --- Bound arguments that reach the function in another shape ---

template <typename T>
struct UnretainedWrapper {
  T* Unwrap() { return ptr; }
  T* ptr;
};

template <typename T>
struct RetainedRefWrapper {
  T* Unwrap() { return ptr.get(); }
  scoped_refptr<T> ptr;
};

template <typename T, typename Deleter = std::default_delete<T>>
struct OwnedWrapper {
  T* Unwrap() { return ptr.get(); }
  std::unique_ptr<T, Deleter> ptr;
};

template <typename T>
struct PassedWrapper {
  T&& Unwrap() { return std::move(value); }
  T value;
};

template <typename T>
struct IsWrapper : std::false_type {};
template <typename T>
struct IsWrapper<UnretainedWrapper<T>> : std::true_type {};
template <typename T>
struct IsWrapper<RetainedRefWrapper<T>> : std::true_type {};
template <typename T, typename Deleter>
struct IsWrapper<OwnedWrapper<T, Deleter>> : std::true_type {};
template <typename T>
struct IsWrapper<PassedWrapper<T>> : std::true_type {};

template <bool kOnce, typename T>
decltype(auto) Unwrap(T& value) {
  if constexpr (IsWrapper<T>::value) {
    return value.Unwrap();
  } else if constexpr (kOnce) {
    return std::move(value);
  } else {
    return std::as_const(value);
  }
}
template <bool kOnce, typename T>
T& Unwrap(std::reference_wrapper<T>& value) {
  return value.get();
}

// --- Functors ---

template <typename T>
struct IgnoreResultWrapper {
  T functor;
};

template <typename T>
struct IsOnceCallback : std::false_type {};
template <typename Signature>
struct IsOnceCallback<OnceCallback<Signature>> : std::true_type {};

template <typename T>
struct IsRepeatingCallback : std::false_type {};
template <typename Signature>
struct IsRepeatingCallback<RepeatingCallback<Signature>> : std::true_type {};

template <typename T>
struct IsWeakPtr : std::false_type {};
template <typename T>
struct IsWeakPtr<WeakPtr<T>> : std::true_type {};

// The object behind what was bound as the object of a member function.
template <typename T>
decltype(auto) Object(T&& bound) {
  if constexpr (requires { *bound; }) {
    return *bound;
  } else {
    return std::forward<T>(bound);
  }
}

template <typename F, typename... Args>
decltype(auto) Invoke(F& functor, Args&&... args) {
  if constexpr (IsOnceCallback<F>::value) {
    return std::move(functor).Run(std::forward<Args>(args)...);
  } else if constexpr (IsRepeatingCallback<F>::value) {
    return functor.Run(std::forward<Args>(args)...);
  } else if constexpr (std::is_member_pointer_v<F>) {
    return [&functor]<typename Bound, typename... Rest>(Bound&& bound,
                                                        Rest&&... rest) -> decltype(auto) {
      return std::invoke(functor, Object(std::forward<Bound>(bound)), std::forward<Rest>(rest)...);
    }(std::forward<Args>(args)...);
  } else {
    return std::invoke(functor, std::forward<Args>(args)...);
  }
}

template <typename F, typename... Args>
void Invoke(IgnoreResultWrapper<F>& wrapper, Args&&... args) {
  Invoke(wrapper.functor, std::forward<Args>(args)...);
}

// --- Signatures; the object of a member function counts as its first argument ---

template <typename Signature>
struct DropFirst;
template <typename R, typename First, typename... Args>
struct DropFirst<R(First, Args...)> {
  using Type = R(Args...);
};

template <size_t kCount, typename Signature>
struct Drop : Drop<kCount - 1, typename DropFirst<Signature>::Type> {};
template <typename Signature>
struct Drop<0, Signature> {
  using Type = Signature;
};

template <typename R, typename Signature>
struct WithResult;
template <typename R, typename Old, typename... Args>
struct WithResult<R, Old(Args...)> {
  using Type = R(Args...);
};

// Lambdas and other function objects: the signature of the call operator without its object.
template <typename F>
struct SignatureOf {
  using Type = typename DropFirst<typename SignatureOf<decltype(&F::operator())>::Type>::Type;
};
template <typename R, typename... Args>
struct SignatureOf<R (*)(Args...)> {
  using Type = R(Args...);
};
template <typename R, typename... Args>
struct SignatureOf<R (*)(Args...) noexcept> {
  using Type = R(Args...);
};
template <typename R, typename C, typename... Args>
struct SignatureOf<R (C::*)(Args...)> {
  using Type = R(C*, Args...);
};
template <typename R, typename C, typename... Args>
struct SignatureOf<R (C::*)(Args...) const> {
  using Type = R(const C*, Args...);
};
template <typename R, typename C, typename... Args>
struct SignatureOf<R (C::*)(Args...) noexcept> {
  using Type = R(C*, Args...);
};
template <typename R, typename C, typename... Args>
struct SignatureOf<R (C::*)(Args...) const noexcept> {
  using Type = R(const C*, Args...);
};
template <typename Signature>
struct SignatureOf<OnceCallback<Signature>> {
  using Type = Signature;
};
template <typename Signature>
struct SignatureOf<RepeatingCallback<Signature>> {
  using Type = Signature;
};
template <typename F>
struct SignatureOf<IgnoreResultWrapper<F>> {
  using Type = typename WithResult<void, typename SignatureOf<F>::Type>::Type;
};

// --- Storage ---

template <bool kOnce, typename Signature, typename F, typename... Bound>
class BindState;

template <bool kOnce, typename R, typename... Args, typename F, typename... Bound>
class BindState<kOnce, R(Args...), F, Bound...> final : public CallbackState<R(Args...)> {
 public:
  template <typename Functor, typename... BoundArgs>
  explicit BindState(Functor&& functor, BoundArgs&&... bound)
      : functor_(std::forward<Functor>(functor)), bound_(std::forward<BoundArgs>(bound)...) {}

  R Run(Args... args) override {
    if constexpr (IsWeakCall()) {
      if (!std::get<0>(bound_)) {
        return;
      }
    }
    return Call(std::index_sequence_for<Bound...>(), std::forward<Args>(args)...);
  }

 private:
  template <size_t... I, typename... A>
  R Call(std::index_sequence<I...>, A&&... args) {
    return static_cast<R>(
        Invoke(functor_, Unwrap<kOnce>(std::get<I>(bound_))..., std::forward<A>(args)...));
  }

  static constexpr bool IsWeakCall() {
    if constexpr (std::is_member_pointer_v<F> && sizeof...(Bound) > 0) {
      return IsWeakPtr<std::tuple_element_t<0, std::tuple<Bound...>>>::value;
    } else {
      return false;
    }
  }

  F functor_;
  std::tuple<Bound...> bound_;
};

// How an argument is stored: a plain pointer to the object of a member function as a reference.
template <bool kIsObject, typename T>
using Stored = std::conditional_t<kIsObject && std::is_pointer_v<std::decay_t<T>>,
                                  scoped_refptr<std::remove_pointer_t<std::decay_t<T>>>,
                                  std::decay_t<T>>;

template <template <typename> class Callback, bool kOnce, typename F, typename... Bound>
auto MakeCallback(F&& functor, Bound&&... bound) {
  using Functor = std::decay_t<F>;
  using Signature = typename Drop<sizeof...(Bound), typename SignatureOf<Functor>::Type>::Type;
  return [&]<size_t... I>(std::index_sequence<I...>) {
    using State = BindState<kOnce, Signature, Functor,
                            Stored<std::is_member_pointer_v<Functor> && I == 0, Bound>...>;
    return Callback<Signature>(
        std::make_unique<State>(std::forward<F>(functor), std::forward<Bound>(bound)...));
  }
  (std::index_sequence_for<Bound...>());
}

template <template <typename> class Callback, bool kOnce, typename F, typename... Bound>
auto Bind(F&& functor, Bound&&... bound) {
  if constexpr (sizeof...(Bound) == 0 && IsRepeatingCallback<std::decay_t<F>>::value) {
    return Callback<typename SignatureOf<std::decay_t<F>>::Type>(std::forward<F>(functor));
  } else if constexpr (sizeof...(Bound) == 0 && IsOnceCallback<std::decay_t<F>>::value) {
    return std::decay_t<F>(std::forward<F>(functor));
  } else {
    return MakeCallback<Callback, kOnce>(std::forward<F>(functor), std::forward<Bound>(bound)...);
  }
}

}  // namespace cef_internal
}  // namespace base
