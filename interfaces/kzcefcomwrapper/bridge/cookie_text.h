// One cookie as hosts see it.
#pragma once

#include "com/text.h"
#include "include/cef_cookie.h"

namespace kzcef {

// Returns {"domain":"...","name":"...","value":"..."}, always these three in this order. The
// cookie's texts appear in it as they are: hosts count on quotes, backslashes and control
// characters not being escaped. Throws std::bad_alloc.
UniqueBstr CookieText(const CefCookie& cookie);

}  // namespace kzcef
