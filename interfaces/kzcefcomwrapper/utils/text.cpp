// Splitting, trimming and replacing, and reading numbers, the same for
// every character type where that is needed.

#include "utils/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace kzcef {

std::vector<std::string> SplitAt(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator, begin)) {
    pieces.emplace_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  pieces.emplace_back(text.substr(begin));
  return pieces;
}

std::string Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \n\r\t\f\v";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin));
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
  if (find.empty()) {
    return std::string(text);
  }
  std::string result;
  std::size_t begin = 0;
  for (std::size_t found = text.find(find); found != std::string_view::npos;
       found = text.find(find, begin)) {
    result.append(text.substr(begin, found - begin)).append(replacement);
    begin = found + find.size();
  }
  return result.append(text.substr(begin));
}

template <typename Char>
int LeadingInteger(std::basic_string_view<Char> text) {
  const auto is_blank = [](Char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
  auto at = std::find_if_not(text.begin(), text.end(), is_blank);
  const bool negative = at != text.end() && *at == '-';
  if (at != text.end() && (*at == '-' || *at == '+')) {
    ++at;
  }
  constexpr std::int64_t kLowest = std::numeric_limits<int>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<int>::max();
  std::int64_t value = 0;
  for (; at != text.end() && *at >= '0' && *at <= '9'; ++at) {
    const int digit = static_cast<int>(*at - '0');
    value = std::clamp(value * 10 + (negative ? -digit : digit), kLowest, kHighest);
  }
  return static_cast<int>(value);
}

template int LeadingInteger(std::basic_string_view<char> text);
template int LeadingInteger(std::basic_string_view<char16_t> text);
template int LeadingInteger(std::basic_string_view<wchar_t> text);

}  // namespace kzcef
