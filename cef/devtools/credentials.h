#pragma once

#include <functional>
#include <string>

#include "devtools/protocol_connection.h"
#include "include/cef_request_handler.h"

namespace cefedition {

/// Answers `Fetch.authRequired`, the demand of a server or a proxy for credentials: as the client
/// says, at once or later. A client that does not care, or lets go of its callback, gives none; the
/// page that came with the demand is then shown.
///
/// IO thread; `send` takes a command for the page and may be called on any thread.
void AskForCredentials(const CefRefPtr<CefRequestHandler>& handler,
                       const CefRefPtr<CefBrowser>& browser,
                       const Json& params,
                       std::function<void(const std::string& method, Json answer)> send);

}  // namespace cefedition
