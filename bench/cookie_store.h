// The cookie store of the engine that runs in this process, used without the server.
#pragma once

#include "include/cef_cookie.h"

namespace kzbench {

// A cookie of a site of its own: the engine keeps at most 180 of one site.
CefCookie BenchCookie(int number);

// Puts the first `count` cookies of that kind into the store. Throws std::runtime_error when one is
// refused, or not all of them are kept.
void FillCookieStore(int count);

// Visits all cookies, and returns how many there are.
int VisitCookieStore();

}  // namespace kzbench
