// The cookie texts in a VARIANT that a host passes.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>

namespace kzcef {

// Calls `visit` with each element of the one-dimensional SAFEARRAY of BSTR that `cookies` holds, in
// the order of their indexes; elements may be null. The array may come by reference, also inside a
// VARIANT by reference, as script engines pass their variables. It is locked meanwhile, so `visit`
// must not throw. The element type in the VARIANT's type tag does not matter, only what the array
// itself says. Nothing is visited in an array of anything else or of several dimensions, or where
// there is no array.
void ForEachCookieText(const VARIANT& cookies, const std::function<void(BSTR)>& visit);

}  // namespace kzcef
