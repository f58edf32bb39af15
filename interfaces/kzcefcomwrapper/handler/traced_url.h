// The trace lines of the request callbacks.
#pragma once

#include "handler/contained_notification.h"
#include "include/cef_request.h"
#include "utils/tracing.h"

namespace kzcef {

// Traces a URL directly behind `prefix`. Makes no text while tracing is off, and throws nothing.
inline void TraceUrl(const char* prefix, const CefString& url) noexcept {
  if (IsTraceEnabled()) {
    Contained([&] { Trace2(prefix, url, 1); });
  }
}

// The same for the URL that `request` has now.
inline void TraceUrl(const char* prefix, const CefRefPtr<CefRequest>& request) noexcept {
  if (IsTraceEnabled()) {
    Contained([&] { Trace2(prefix, request->GetURL(), 1); });
  }
}

}  // namespace kzcef
