// Starting CEF, once per process.
#pragma once

#include "bridge/kz_cef_bridge_impl.h"

struct IKZCEFComSettings;

namespace kzcef {

// Starts CEF with `settings` on the calling thread. Returns the process's bridge, or null when CEF
// did not start; only the first call in a process can start it. `instance` is ignored and taken as
// null.
kzCefBridgeImpl* InitCefRuntime(HINSTANCE instance, IKZCEFComSettings* settings);

}  // namespace kzcef
