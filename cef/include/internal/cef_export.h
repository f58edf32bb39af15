#pragma once

#include "include/base/cef_build.h"

// The edition is a static library: nothing is exported.
#define CEF_EXPORT
#define CEF_CALLBACK __stdcall
