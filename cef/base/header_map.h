#pragma once

#include <map>

#include "include/internal/cef_string.h"

namespace cefedition {

// Headers of requests and responses. Names are compared without regard to the case of ASCII
// letters.
using HeaderMap = std::multimap<CefString, CefString>;

// The value of the first header of that name, empty if there is none.
CefString FindHeader(const HeaderMap& headers, const CefString& name);

// Puts |value| in the place of all headers of that name, or does nothing when there is one and
// |overwrite| is false.
void SetHeader(HeaderMap* headers, const CefString& name, const CefString& value, bool overwrite);

// Removes all headers of that name.
void EraseHeader(HeaderMap* headers, const CefString& name);

}  // namespace cefedition
