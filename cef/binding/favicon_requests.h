// Requests for the pictures of pages.
//
// CEF 123 only announced such a picture's address; it was fetched when the client asked for it with
// DownloadImage. The engine fetches it, or /favicon.ico, in any case (Chrome's
// ContentFaviconDriver) and has no switch for that: what nobody asked for ends here, unknown to the
// client.
#pragma once

#include "include/cef_browser.h"
#include "include/cef_resource_request_handler.h"

namespace cefbinding {

// A callback that leads to `callback`. As long as it lives, requests of the browser for `url` are
// asked for. Any thread.
CefRefPtr<CefDownloadImageCallback> ExpectFavicon(int browser_id,
                                                  const CefString& url,
                                                  CefRefPtr<CefDownloadImageCallback> callback);

// Whether a request of the browser for a page's picture is asked for, or was when its address was
// another: one that is redirected keeps its identifier. Any thread.
bool IsExpectedFavicon(int browser_id, CefRequest& request);

// A handler that ends its request before it is sent.
CefRefPtr<CefResourceRequestHandler> Refusal();

}  // namespace cefbinding
