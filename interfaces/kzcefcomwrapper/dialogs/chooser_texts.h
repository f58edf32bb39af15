// The plain texts of the certificate chooser.
#pragma once

#include <string>
#include <string_view>

namespace kzcef {

// Returns the bytes of a serial number as two upper-case hexadecimal digits each, without
// separators.
std::string SerialNumberText(std::string_view bytes);

// Returns `format` with its first "%s" replaced by `site`. Nothing else in either text has a
// meaning, so that neither a translator's slip nor the name of a site can do harm. A null `site`
// becomes "(null)", as the C runtime prints it.
std::wstring PromptText(std::wstring_view format, const wchar_t* site);

}  // namespace kzcef
