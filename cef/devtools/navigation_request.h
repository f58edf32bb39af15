#pragma once

#include <string>

#include "devtools/load_tracker.h"
#include "devtools/protocol_connection.h"
#include "include/cef_request.h"

namespace cefedition {

/// The URL of a protocol request with its fragment.
std::string RequestUrl(const Json& request);

/// The read-only request of `OnBeforeBrowse`. `request` is the protocol's, null when there is none.
CefRefPtr<CefRequest> MakeRequest(const NavigationRequest& navigation,
                                  const Json* request,
                                  bool is_main);

}  // namespace cefedition
