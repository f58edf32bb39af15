// Where a browser's window comes into being.
//
// The engine does not survive the loss of the parent of a window that it is making: what it has of
// the browser by then is taken down under its hands. A host may close its window at any moment, on
// a thread of its own. So the engine makes the window in a hidden one of this side's, on its own
// thread, and it moves to its parent when the browser is complete: a moment after the browser has
// been told of by OnAfterCreated, in which the engine still works on it.
#pragma once

#include <windows.h>

#include "include/cef_browser.h"

namespace cefbinding {

// A hidden window that stands for `parent`; null when there is no such window any more. UI thread.
HWND MakeParking(HWND parent);

// Moves the window of `browser` from its parking to the parent for which that stands. If this is
// gone the browser goes, too, as any does that loses its window. Nothing without a parking. UI
// thread.
void LeaveParking(const CefRefPtr<CefBrowser>& browser);

}  // namespace cefbinding
