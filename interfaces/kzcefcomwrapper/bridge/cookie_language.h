// The cookie by which web applications tell the host's language.
#pragma once

#include <string_view>

namespace kzcef {

// Makes the value of a cookie with this name the process's CookieLanguage, if it is that cookie.
void CaptureLanguage(std::wstring_view cookie_name, std::wstring_view cookie_value);

// The same for the cookie of a cookie text (cookie_text.h). Throws std::out_of_range "invalid
// map<K, T> key" for a text that mentions the cookie, but has no "name" or no "value"; there are
// such texts, because nothing in them is escaped.
void CaptureLanguageOf(std::wstring_view cookie_text);

}  // namespace kzcef
