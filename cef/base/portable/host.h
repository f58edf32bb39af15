#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cefedition {

// A host name as the browser writes it: lower case, percent-encoding undone, characters beyond
// ASCII in Punycode, IPv4 addresses as four decimal numbers, IPv6 addresses in brackets and in
// their shortest form. Nothing for what cannot be a host. Letters beyond ASCII keep their case and
// form: the tables for mapping them are not part of the edition.
std::optional<std::string> CanonicalHost(std::string_view text);

}  // namespace cefedition
