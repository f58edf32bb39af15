// Finds the members of a flat JSON object by splitting its text. This is no JSON parser: escapes,
// nested objects and arrays are not recognised, and hosts count on what becomes of their texts.
#pragma once

#include <map>
#include <string_view>

namespace kzcef {

// Member names to member texts, in ordinal order of the names. Both are parts of the text that was
// read, and valid no longer than it is.
template <typename Char>
using FlatJson = std::map<std::basic_string_view<Char>, std::basic_string_view<Char>>;

// Returns the members of `text`, whatever it is; the last of several with the same name counts. The
// braces around the object may be missing or be several. A name ends at the next colon, a value at
// the next comma behind its first two double quotes; names and values lose the white space and the
// double quotes at their ends and keep those inside. White space is what Trim (text.h) takes:
// blank, line feed, carriage return, tab, form feed and vertical tab.
//
// Every text has at least one member: what has no name is found under the empty one.
// The time it takes depends on the length of the text only. Throws std::bad_alloc.
template <typename Char>
FlatJson<Char> ReadFlatJson(std::basic_string_view<Char> text);

// Returns whether only the unnamed entry is there: the text was an empty object, or none at all.
template <typename Char>
bool HasNoNamedMember(const FlatJson<Char>& members);

// Returns the text of a member. Throws std::out_of_range "invalid map<K, T> key" when there is
// none.
template <typename Char>
std::basic_string_view<Char> MemberText(const FlatJson<Char>& members,
                                        std::basic_string_view<Char> name);

extern template FlatJson<char16_t> ReadFlatJson(std::basic_string_view<char16_t> text);
extern template FlatJson<wchar_t> ReadFlatJson(std::basic_string_view<wchar_t> text);
extern template bool HasNoNamedMember(const FlatJson<char16_t>& members);
extern template bool HasNoNamedMember(const FlatJson<wchar_t>& members);
extern template std::basic_string_view<char16_t> MemberText(const FlatJson<char16_t>& members,
                                                            std::basic_string_view<char16_t> name);
extern template std::basic_string_view<wchar_t> MemberText(const FlatJson<wchar_t>& members,
                                                           std::basic_string_view<wchar_t> name);

}  // namespace kzcef
