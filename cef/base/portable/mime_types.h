#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cefedition {

// The MIME type for a file extension without its dot, in any case; empty if it is not a common one.
std::string MimeTypeFor(std::string_view extension);

// The extensions of a MIME type, or of all types of a kind ("image/*").
std::vector<std::string> ExtensionsFor(std::string_view mime_type);

}  // namespace cefedition
