#pragma once

#include <string>
#include <string_view>

namespace cefedition {

// The longest name that SafeFileName gives, in bytes. What a browser adds to a name while it writes
// still fits beside it.
inline constexpr size_t kMaxFileNameBytes = 200;

// The name of a file, as a page or a server wishes it, made fit for any folder on Windows: one name
// without separators, control characters and characters that Windows refuses, with neither a dot in
// front nor dots or spaces at its end, no device's name, and of bounded length with its extension
// kept. Both are UTF-8. A name of which nothing is left becomes "download".
std::string SafeFileName(std::string_view wished);

}  // namespace cefedition
