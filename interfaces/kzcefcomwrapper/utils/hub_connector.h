// The local hub: a proxy on the loopback interface that a host installation may run, and the
// library of that installation that rewrites requests for it.
#pragma once

#include <string>

#include "include/cef_request.h"

namespace kzcef {

// Returns whether the host gave a hub port. The first call fixes the result for the life of the
// process, so it must not come before start-up has read the host's settings. Any thread.
bool IsHubOn();

// Returns the port that the host gave, 0 or more; -1 without one. Any thread.
int GetHubPort();

// Returns the full path of the hub installation's "VLMCommHubUtils.dll", read from the registry at
// each call; empty without a hub installation. Any thread.
std::wstring GetHubUtilsPath();

// Has the hub library transform `url` and sets the headers that it wants on `request`. Nothing
// changes without the library or its "transformUrlForHub", which are looked for again at each call
// until they are found, and then kept for the life of the process. Any thread.
void TransformUrlForHub(CefString& url, CefRefPtr<CefRequest> request);

// Prepares a request for the way through the hub: removes a default port from its URL, transforms
// the URL and sets the library's headers. Does nothing while the hub is off or when the URL cannot
// be parsed. Called on CEF's IO thread, once per request.
void RewriteRequestForHub(CefRefPtr<CefRequest> request);

}  // namespace kzcef
