// The value in which cookies go to the host.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "com/text.h"

namespace kzcef {

// Returns VT_EMPTY without texts, otherwise a one-dimensional SAFEARRAY of BSTR from index 0 with
// the texts in their order; the caller frees it. Looks at every text for the language
// (CaptureLanguageOf) and throws what that throws, or std::bad_alloc.
VARIANT CookieList(std::vector<UniqueBstr> texts);

// Returns what stands for no cookies, VT_EMPTY.
VARIANT NoCookies() noexcept;

}  // namespace kzcef
