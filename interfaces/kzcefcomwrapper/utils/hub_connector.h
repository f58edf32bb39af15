// The local hub: a proxy on the loopback interface that a host installation may run, and the
// library of that installation that rewrites requests for it.
#pragma once

#include <string>

#include "include/cef_request.h"

namespace kzcef {

// Whether the host gave a hub port. The first query fixes the answer for the life of the process,
// so nobody may ask before start-up has read the host's settings. Any thread.
bool IsHubOn();

// The port that the host gave, 0 or more; -1 without one. Any thread.
int GetHubPort();

// The full path of the hub installation's "VLMCommHubUtils.dll", read from the registry at each
// call; empty without a hub installation. Any thread.
std::wstring GetHubUtilsPath();

// Has the hub library transform `url` and sets the headers that it wants on `request`. Nothing
// changes without the library or its "transformUrlForHub", which are looked for again at each call
// until they are found; then they stay for the life of the process. Any thread.
void TransformUrlForHub(CefString& url, CefRefPtr<CefRequest> request);

// Prepares a request for the way through the hub: its URL loses a default port and is transformed,
// and gets the library's headers. Does nothing while the hub is off or when the URL cannot be
// parsed. Called on CEF's IO thread, once a request.
void RewriteRequestForHub(CefRefPtr<CefRequest> request);

}  // namespace kzcef
