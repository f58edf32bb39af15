// include/base/cef_callback_forward.h of CEF 123, as far as it is used here:
// declares the callbacks for headers that only name them.
#pragma once

namespace base {

template <typename Signature>
class OnceCallback;

template <typename Signature>
class RepeatingCallback;

using OnceClosure = OnceCallback<void()>;
using RepeatingClosure = RepeatingCallback<void()>;

}  // namespace base
