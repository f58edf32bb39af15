// Splits the text from left to right: a name up to the next colon, a value up
// to the comma that ends it. Nothing is copied.

#include "utils/flat_json.h"

#include <cstddef>
#include <stdexcept>

namespace kzcef {
namespace {

// `text` without the characters at either end that `is_dropped` names.
template <typename Char, typename Predicate>
std::basic_string_view<Char> Strip(std::basic_string_view<Char> text, Predicate is_dropped) {
  while (!text.empty() && is_dropped(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && is_dropped(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

template <typename Char>
std::basic_string_view<Char> TrimBlanks(std::basic_string_view<Char> text) {
  return Strip(text, [](Char c) { return c == Char(' ') || (c >= Char('\t') && c <= Char('\r')); });
}

template <typename Char>
std::basic_string_view<Char> WithoutBraces(std::basic_string_view<Char> text) {
  while (text.starts_with(Char('{'))) {
    text.remove_prefix(1);
  }
  while (text.ends_with(Char('}'))) {
    text.remove_suffix(1);
  }
  return text;
}

template <typename Char>
std::basic_string_view<Char> TrimQuoted(std::basic_string_view<Char> text) {
  return TrimBlanks(Strip(TrimBlanks(text), [](Char c) { return c == Char('"'); }));
}

// The comma at which the value at the beginning of `rest` ends; one between the value's first two
// double quotes does not count, and neither does any behind a quote that is never closed.
template <typename Char>
std::size_t EndOfValue(std::basic_string_view<Char> rest) {
  constexpr auto kNone = std::basic_string_view<Char>::npos;
  const std::size_t comma = rest.find(Char(','));
  if (comma == kNone) {
    return kNone;
  }
  const std::size_t opening = rest.substr(0, comma).find(Char('"'));
  if (opening == kNone) {
    return comma;
  }
  const std::size_t closing = rest.find(Char('"'), opening + 1);
  return closing == kNone ? kNone : rest.find(Char(','), closing + 1);
}

}  // namespace

template <typename Char>
FlatJson<Char> ReadFlatJson(std::basic_string_view<Char> text) {
  constexpr auto kNone = std::basic_string_view<Char>::npos;
  FlatJson<Char> members;
  std::basic_string_view<Char> rest = WithoutBraces(TrimBlanks(text));
  // Once there is no colon left there is none behind it either: a long text without one is searched
  // once, not at every comma.
  bool has_colon = true;
  for (bool is_last = false; !is_last;) {
    std::basic_string_view<Char> name;
    const std::size_t colon = has_colon ? rest.find(Char(':')) : kNone;
    has_colon = colon != kNone;
    if (has_colon) {
      name = TrimQuoted(rest.substr(0, colon));
      rest.remove_prefix(colon + 1);
    }
    const std::size_t comma = EndOfValue(rest);
    is_last = comma == kNone;
    members.insert_or_assign(name, TrimQuoted(rest.substr(0, comma)));
    if (!is_last) {
      rest.remove_prefix(comma + 1);
    }
  }
  return members;
}

template <typename Char>
bool HasNoNamedMember(const FlatJson<Char>& members) {
  return members.empty() || members.rbegin()->first.empty();
}

template <typename Char>
std::basic_string_view<Char> MemberText(const FlatJson<Char>& members,
                                        std::basic_string_view<Char> name) {
  const auto found = members.find(name);
  if (found == members.end()) {
    throw std::out_of_range("invalid map<K, T> key");
  }
  return found->second;
}

template FlatJson<char16_t> ReadFlatJson(std::basic_string_view<char16_t> text);
template FlatJson<wchar_t> ReadFlatJson(std::basic_string_view<wchar_t> text);
template bool HasNoNamedMember(const FlatJson<char16_t>& members);
template bool HasNoNamedMember(const FlatJson<wchar_t>& members);
template std::basic_string_view<char16_t> MemberText(const FlatJson<char16_t>& members,
                                                     std::basic_string_view<char16_t> name);
template std::basic_string_view<wchar_t> MemberText(const FlatJson<wchar_t>& members,
                                                    std::basic_string_view<wchar_t> name);

}  // namespace kzcef
