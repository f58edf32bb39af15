#pragma once

#include "include/base/cef_build.h"

// What these headers declare is linked statically: nothing is exported.
#define CEF_EXPORT
#define CEF_CALLBACK __stdcall
