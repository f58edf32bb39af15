#pragma once

#include <string>

#include "devtools/load_tracker.h"
#include "devtools/protocol_connection.h"
#include "include/cef_request.h"

namespace cefedition {

/// The read-only request of `OnBeforeBrowse`. `request` is the protocol's, null when there is none.
CefRefPtr<CefRequest> MakeRequest(const NavigationRequest& navigation,
                                  const Json* request,
                                  bool is_main);

}  // namespace cefedition
