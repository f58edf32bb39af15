// The one trace facility. Off unless the environment variable "CefLogEnabled" was 1 when it was
// first asked about; then each line goes to the function suTrace of the "pelkor.dll" beside the
// host's executable, and is dropped where there is none. Any thread.
#pragma once

#include <string>

#include "include/internal/cef_string.h"

namespace kzcef {

// Returns whether lines are written at all. Ask before building a costly one.
bool IsTraceEnabled();

// Writes one line. The level is accepted and not used.
void Trace(const std::wstring& text, unsigned char level = 0);

// Writes one line made of both texts, with nothing between them.
void Trace2(const CefString& first, const CefString& second, unsigned char level = 0);

}  // namespace kzcef
