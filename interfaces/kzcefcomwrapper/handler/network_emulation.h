// Cutting a browser off from the network.
#pragma once

#include "include/cef_browser.h"

namespace kzcef {

// Applies the emulated network state to `browser` by a DevTools command; the outcome is not
// awaited.
void EmulateNetwork(const CefRefPtr<CefBrowser>& browser, bool offline);

}  // namespace kzcef
