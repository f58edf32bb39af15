#pragma once

#include <string>

#include "include/cef_request_context_handler.h"
#include "include/cef_request_handler.h"

namespace cefedition {

/// Who is asked about a request: the client's handler (which may be null) names somebody first,
/// then the request context's. Null when neither does. IO thread.
CefRefPtr<CefResourceRequestHandler> ChooseHandler(
    const CefRefPtr<CefRequestHandler>& of_client,
    const CefRefPtr<CefRequestContextHandler>& of_context,
    const CefRefPtr<CefBrowser>& browser,
    const CefRefPtr<CefFrame>& frame,
    const CefRefPtr<CefRequest>& request,
    bool is_navigation,
    bool is_download,
    const std::string& initiator,
    bool& disable_default_handling);

}  // namespace cefedition
