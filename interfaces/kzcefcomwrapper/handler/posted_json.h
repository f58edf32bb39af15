// What a page posts to a federated search service.
#pragma once

#include <string>

#include "include/cef_request.h"

namespace kzcef {

// Returns the JSON body of an XHR post whose URL contains "federated", read in the ANSI code page
// up to its first null byte; empty for every other request. The body is the first of the post's
// elements that holds bytes and is not empty; it is not validated. Any thread.
std::wstring PostedJson(const CefRefPtr<CefRequest>& request);

}  // namespace kzcef
