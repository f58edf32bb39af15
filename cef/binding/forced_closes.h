// Which browsers are being closed whatever their pages say.
#pragma once

#include "include/cef_browser.h"

namespace cefbinding {

// Notes that a browser was told to close without asking its page. Any thread.
void NoteForcedClose(int browser_id);

// Whether it was, or its window has gone. Any thread.
bool IsForcedToClose(CefBrowser& browser);

// Forgets a browser that has closed. Any thread.
void ForgetForcedClose(int browser_id);

}  // namespace cefbinding
