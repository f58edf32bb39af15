#pragma once

#include <string>
#include <string_view>

namespace cefedition {

// Percent-encodes everything but ASCII letters, digits and -_.!~*'(). A space becomes "+" if
// |use_plus|.
std::string PercentEncode(std::string_view text, bool use_plus);

// What PercentDecode undoes besides letters, digits and most signs.
struct PercentDecodeRule {
  bool spaces = false;
  // "/" and "\".
  bool path_separators = false;
  // Characters that would change the meaning of a URL, such as "%", "+", "&" and "#".
  bool special = false;
  bool plus_to_space = false;
};

// Undoes percent-encoding. Controls, and bytes that are no UTF-8 together, stay as they are.
std::string PercentDecode(std::string_view text, const PercentDecodeRule& rule);

}  // namespace cefedition
