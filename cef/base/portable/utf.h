#pragma once

#include <string>
#include <string_view>

namespace cefedition {

// Conversions between UTF-8 and UTF-16. Every ill-formed sequence (its longest valid beginning, or
// one unit) becomes one U+FFFD, so that the result is always well-formed; |*valid|, where given,
// tells whether there was none.
std::u16string Utf8ToUtf16(std::string_view text, bool* valid = nullptr);
std::string Utf16ToUtf8(std::u16string_view text, bool* valid = nullptr);

// Replaces the ill-formed sequences of a UTF-16 text.
std::u16string ToWellFormed(std::u16string_view text);

}  // namespace cefedition
