// include/internal/cef_export.h of CEF 123, as far as it is used
// here: how the API's functions are declared.
#pragma once

#include "include/base/cef_build.h"

// What these headers declare is linked statically: nothing is exported.
#define CEF_EXPORT
#define CEF_CALLBACK __stdcall
