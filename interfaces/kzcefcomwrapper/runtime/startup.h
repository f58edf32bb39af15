// Starting CEF, once per process.
#pragma once

#include <windows.h>

#include "KZCEFComWrapper.h"

namespace kzcef {

// Starts CEF with the host's settings: in a cache directory of this process's own where one can be
// had, with its log there unless the host names another. True when CEF runs. False when it refused,
// when a lock file in the way cannot be read or deleted, without settings, and at every call but
// the first one with settings, whatever came of that. Never throws.
// Called on the host's thread. Every instance handle is taken as null.
bool StartCefRuntime(HINSTANCE instance, IKZCEFComSettings* settings) noexcept;

}  // namespace kzcef
