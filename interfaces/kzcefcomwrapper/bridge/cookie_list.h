// What a read of cookies answers.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "com/text.h"

namespace kzcef {

// VT_EMPTY without texts, otherwise a one-dimensional SAFEARRAY of BSTR from index 0 with the texts
// in their order; the caller frees it. On the way every text is looked at for the language
// (CaptureLanguageOf, whose errors leave this). Throws std::bad_alloc.
VARIANT CookieList(std::vector<UniqueBstr> texts);

// The answer of a read that found nothing.
VARIANT NoCookies() noexcept;

}  // namespace kzcef
