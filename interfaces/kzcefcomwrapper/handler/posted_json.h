// What a page posts to a federated search service.
#pragma once

#include <string>

#include "include/cef_request.h"

namespace kzcef {

// The JSON body of an XHR post whose URL contains "federated", read in the ANSI code page as far as
// its first null byte; empty for every other request. The body is the first one of bytes that is
// not empty among the post's elements; it is not validated. Any thread.
std::wstring PostedJson(const CefRefPtr<CefRequest>& request);

}  // namespace kzcef
