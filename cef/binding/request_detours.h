// Addresses that a client gives to redirects and to requests that it has made again.
//
// CEF's headers let a client change the address of a redirect in OnResourceRedirect, and the
// request itself in OnResourceResponse. The engine does as it is told only where it makes the
// response itself: for what comes from the network it goes to the server's address, or goes on with
// the response (CEF 123 no less than later ones; see redirects in proxy_url_loader_factory.cc). An
// address that OnBeforeResourceLoad sets is followed always. So the client's address is kept with
// the request's identifier, which stays the same through redirects and restarts, and set there:
// the server's address is not asked for, and the client is not told of the detour.
#pragma once

#include "include/cef_resource_request_handler.h"

namespace cefbinding {

// What the engine calls in place of the client's functions of these names. IO thread.
cef_return_value_t OnBeforeResourceLoad(CefResourceRequestHandler& client,
                                        CefRefPtr<CefBrowser> browser,
                                        CefRefPtr<CefFrame> frame,
                                        CefRefPtr<CefRequest> request,
                                        CefRefPtr<CefCallback> callback);
void OnResourceRedirect(CefResourceRequestHandler& client,
                        CefRefPtr<CefBrowser> browser,
                        CefRefPtr<CefFrame> frame,
                        CefRefPtr<CefRequest> request,
                        CefRefPtr<CefResponse> response,
                        CefString& new_url);
bool OnResourceResponse(CefResourceRequestHandler& client,
                        CefRefPtr<CefBrowser> browser,
                        CefRefPtr<CefFrame> frame,
                        CefRefPtr<CefRequest> request,
                        CefRefPtr<CefResponse> response);
void OnResourceLoadComplete(CefResourceRequestHandler& client,
                            CefRefPtr<CefBrowser> browser,
                            CefRefPtr<CefFrame> frame,
                            CefRefPtr<CefRequest> request,
                            CefRefPtr<CefResponse> response,
                            cef_urlrequest_status_t status,
                            int64_t received_content_length);

// `request`, whose URL changes for its holder only.
CefRefPtr<CefRequest> WithOwnUrl(const CefRefPtr<CefRequest>& request);

}  // namespace cefbinding
