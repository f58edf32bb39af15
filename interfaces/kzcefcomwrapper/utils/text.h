// Small helpers over plain texts. They hold no state and touch neither files nor the platform.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kzcef {

// Returns the pieces of `text` between the separators. Empty pieces are kept, so there is always
// one piece more than there are separators.
std::vector<std::string> SplitAt(std::string_view text, char separator);

// Returns `text` without the blanks, line feeds, carriage returns, tabs, form feeds and vertical
// tabs at either end.
std::string Trim(std::string_view text);

// Returns `text` with every `find` replaced, from left to right; what was inserted is not searched
// again. An empty `find` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);

// Reads a decimal number as C's atoi does: blanks, an optional sign, then digits up to the first
// other character. Returns 0 without digits, and for a number out of range the nearest one in
// range.
template <typename Char>
int LeadingInteger(std::basic_string_view<Char> text);

extern template int LeadingInteger(std::basic_string_view<char> text);
extern template int LeadingInteger(std::basic_string_view<char16_t> text);
extern template int LeadingInteger(std::basic_string_view<wchar_t> text);

}  // namespace kzcef
