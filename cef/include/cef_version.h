// include/cef_version.h of CEF 123, as far as it is used here: version numbers.
#pragma once

// The release of CEF whose API these headers declare, and the browser that it belongs to.

#define CEF_VERSION_MAJOR 123
#define CEF_VERSION_MINOR 0
#define CEF_VERSION_PATCH 13

#define CHROME_VERSION_MAJOR 123
#define CHROME_VERSION_MINOR 0
#define CHROME_VERSION_BUILD 6312
#define CHROME_VERSION_PATCH 124

#define CEF_VERSION "123.0.13+chromium-123.0.6312.124"

#define DO_MAKE_STRING(p) #p
#define MAKE_STRING(p) DO_MAKE_STRING(p)

extern "C" {

// Returns one number of the running engine's version: |entry| 0 to 2 for CEF's major, minor and
// patch, 3 for the commit number, 4 to 7 for the browser's major, minor, build and patch. Returns 0
// for any other |entry|, and without an engine.
int cef_version_info(int entry);

}  // extern "C"
