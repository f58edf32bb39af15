// Addresses whose protocol is another application's, such as mailto.
//
// CEF 123 started the application that Windows knows for it when the client allowed that. The
// engine would ask the user first, in a window of Chrome's.
#pragma once

#include "include/internal/cef_string.h"

namespace cefbinding {

// Starts the application for `url` on a thread of the engine's that may wait, if there is one. Any
// thread.
void OpenExternally(const CefString& url);

// `url` so that it stays one argument of a command, whatever the page has put into it.
std::wstring EscapedForCommand(const std::wstring& url);

}  // namespace cefbinding
