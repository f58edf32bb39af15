// How the host's URL for a response is compared with the request's.
#pragma once

#include <string_view>

namespace kzcef {

// Returns whether two URLs are the same byte for byte, apart from one "/" at the end of either.
bool IsSameUrl(std::string_view first, std::string_view second);

}  // namespace kzcef
