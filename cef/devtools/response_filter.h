#pragma once

#include <optional>
#include <string>

#include "include/cef_response_filter.h"

namespace cefedition {

/// What an initialised filter makes of a whole body; nothing when it reports an error or stops
/// taking what it is given.
std::optional<std::string> FilterBody(CefResponseFilter& filter, std::string body);

}  // namespace cefedition
