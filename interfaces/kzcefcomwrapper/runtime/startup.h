// Starting CEF, once per process.
#pragma once

#include <windows.h>

#include "KZCEFComWrapper.h"

namespace kzcef {

// Starts CEF with the host's settings, in a cache directory that this process has to itself where
// one can be had; its log is written there unless the host names another file. Returns true when
// CEF runs. Returns false when CEF refused, when a lock file in the way cannot be read or deleted,
// without settings, and at every call after the first one with settings, whatever came of that.
// Never throws.
// Called on the host's thread. `instance` is ignored and taken as null.
bool StartCefRuntime(HINSTANCE instance, IKZCEFComSettings* settings) noexcept;

}  // namespace kzcef
