// Matches texts with patterns, in a time that grows with the product of their lengths at most, and
// the arguments of a notification with conditions.

#include "portable/text_match.h"

#include <string>

namespace kzhost {

bool MatchesText(std::string_view text, std::string_view pattern) {
  // The classic walk with one point of return: on a mismatch the last "*" takes one character more.
  size_t in_text = 0;
  size_t in_pattern = 0;
  size_t after_star = std::string_view::npos;
  size_t star_end = 0;
  while (in_text < text.size()) {
    if (in_pattern < pattern.size() && pattern[in_pattern] == '*') {
      after_star = ++in_pattern;
      star_end = in_text;
    } else if (in_pattern < pattern.size() && pattern[in_pattern] == text[in_text]) {
      ++in_pattern;
      ++in_text;
    } else if (after_star != std::string_view::npos) {
      in_pattern = after_star;
      in_text = ++star_end;
    } else {
      return false;
    }
  }
  while (in_pattern < pattern.size() && pattern[in_pattern] == '*') {
    ++in_pattern;
  }
  return in_pattern == pattern.size();
}

bool MatchesArguments(const Json& arguments, const Json& conditions) {
  for (const auto& [name, wanted] : conditions.items()) {
    const auto found = arguments.find(name);
    if (found == arguments.end()) {
      return false;
    }
    const bool holds = wanted.is_string() && found->is_string()
                           ? MatchesText(found->get_ref<const std::string&>(),
                                         wanted.get_ref<const std::string&>())
                           : *found == wanted;
    if (!holds) {
      return false;
    }
  }
  return true;
}

}  // namespace kzhost
