// Makes the engine behave as CEF 123 did under its own ("Alloy") runtime, where a switch can.
#pragma once

#include "include/cef_app.h"

namespace cefbinding {

// `application`, which may be null, with the switches that restore CEF 123's behaviour on the
// browser process's command line before it sees it. What it then sets itself wins.
CefRefPtr<CefApp> WithAlloyBehaviour(CefRefPtr<CefApp> application);

}  // namespace cefbinding
