// include/base/cef_bind.h of CEF 123, as far as it is used here: makes callbacks from functions and
// the arguments that are bound to them.
#pragma once

#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "include/base/cef_callback.h"
#include "include/base/cef_weak_ptr.h"
#include "include/base/internal/cef_bind_internal.h"

// A function, member function, lambda or callback with its leading arguments, as a callback for
// the remaining ones. The object of a member function is kept alive if it is bound as a plain or
// counted pointer; through a WeakPtr the call becomes nothing once the object is gone; Unretained
// does neither.

namespace base {

// A callback to run once; what is bound is moved to the function.
template <typename Functor, typename... Args>
auto BindOnce(Functor&& functor, Args&&... args) {
  return cef_internal::Bind<OnceCallback, true>(std::forward<Functor>(functor),
                                                std::forward<Args>(args)...);
}

// A callback to run any number of times; what is bound is copied to the function.
template <typename Functor, typename... Args>
auto BindRepeating(Functor&& functor, Args&&... args) {
  static_assert(!cef_internal::IsOnceCallback<std::decay_t<Functor>>::value,
                "BindRepeating cannot bind a OnceCallback.");
  return cef_internal::Bind<RepeatingCallback, false>(std::forward<Functor>(functor),
                                                      std::forward<Args>(args)...);
}

// The caller keeps |o| alive for as long as the callback may run.
template <typename T>
auto Unretained(T* o) {
  return cef_internal::UnretainedWrapper<T>{o};
}

// The callback keeps a reference, the function receives a plain pointer.
template <typename T>
auto RetainedRef(T* o) {
  return cef_internal::RetainedRefWrapper<T>{o};
}
template <typename T>
auto RetainedRef(scoped_refptr<T> o) {
  return cef_internal::RetainedRefWrapper<T>{std::move(o)};
}

// The callback deletes |o| with itself, the function receives a plain pointer.
template <typename T>
auto Owned(T* o) {
  return cef_internal::OwnedWrapper<T>{std::unique_ptr<T>(o)};
}
template <typename T, typename Deleter>
auto Owned(std::unique_ptr<T, Deleter>&& ptr) {
  return cef_internal::OwnedWrapper<T, Deleter>{std::move(ptr)};
}

// Moves a value through a RepeatingCallback, which can then run once only.
template <typename T, std::enable_if_t<!std::is_lvalue_reference_v<T>>* = nullptr>
auto Passed(T&& value) {
  // NOLINTNEXTLINE(bugprone-move-forwarding-reference): as CEF declares it.
  return cef_internal::PassedWrapper<T>{std::move(value)};
}
template <typename T>
auto Passed(T* value) {
  return cef_internal::PassedWrapper<T>{std::move(*value)};
}

// Makes a function with a result usable where none is wanted.
template <typename T>
auto IgnoreResult(T functor) {
  return cef_internal::IgnoreResultWrapper<T>{std::move(functor)};
}

}  // namespace base
