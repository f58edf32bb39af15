// include/internal/cef_ptr.h of CEF 123, as far as it is used here:
// the API's names for its kinds of pointer.
#pragma once

#include <memory>

#include "include/base/cef_build.h"
#include "include/base/cef_ref_counted.h"

// A counted reference.
template <class T>
using CefRefPtr = scoped_refptr<T>;

// Sole ownership.
template <class T, class D = std::default_delete<T>>
using CefOwnPtr = std::unique_ptr<T, D>;

// A pointer that is valid for the call only.
template <class T>
using CefRawPtr = T*;
