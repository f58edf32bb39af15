#include "log_secrets.h"

#include <algorithm>
#include <cstddef>

#include "ascii.h"

namespace cefedition {
namespace {

constexpr std::string_view kHidden = "***";
// Both headers end so; a header's name also stands in texts, as "Authorization: Basic ...".
constexpr std::string_view kHeader = "authorization";
constexpr std::string_view kAnswer = "\"authChallengeResponse\":";

size_t FindIgnoringCase(std::string_view text, std::string_view lower, size_t start) {
  const auto found =
      std::search(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), lower.begin(),
                  lower.end(), [](char a, char b) { return ToLowerAscii(a) == b; });
  return found != text.end() ? static_cast<size_t>(found - text.begin()) : std::string_view::npos;
}

// Where the JSON string that begins before |start| ends: at its closing quote.
size_t EndOfString(std::string_view text, size_t start) {
  for (size_t i = start; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == '"') {
      return i;
    }
  }
  return text.size();
}

// Where the value begins that belongs to the header's name, which ends at |end|; |end| itself when
// it is not followed by one.
size_t StartOfValue(std::string_view text, size_t end) {
  for (const std::string_view between : {"\":\"", "\",\"value\":\"", ": ", ":"}) {
    if (text.substr(end).starts_with(between)) {
      return end + between.size();
    }
  }
  return end;
}

void HideHeaders(std::string& text) {
  size_t found = FindIgnoringCase(text, kHeader, 0);
  while (found != std::string_view::npos) {
    const size_t end = found + kHeader.size();
    const size_t start = StartOfValue(text, end);
    size_t next = start;
    if (start != end) {
      // In a text of many headers a value ends with its line.
      const size_t line = std::min(text.find("\\r", start), text.find("\\n", start));
      text.replace(start, std::min(line, EndOfString(text, start)) - start, kHidden);
      next = start + kHidden.size();
    }
    found = FindIgnoringCase(text, kHeader, next);
  }
}

void HideInUrls(std::string& text) {
  constexpr std::string_view kScheme = "://";
  for (size_t found = text.find(kScheme); found != std::string::npos;
       found = text.find(kScheme, found + kScheme.size())) {
    const size_t start = found + kScheme.size();
    const size_t end = std::min(text.find_first_of("/?#\" ", start), text.size());
    const size_t at = std::string_view(text).substr(0, end).rfind('@');
    if (at != std::string_view::npos && at >= start) {
      text.replace(start, at - start, kHidden);
    }
  }
}

}  // namespace

std::string WithoutSecrets(std::string_view message) {
  const size_t answer = message.find(kAnswer);
  std::string text(message.substr(0, answer));
  if (answer != std::string_view::npos) {
    text.append(kAnswer).append(kHidden);
  }
  HideHeaders(text);
  HideInUrls(text);
  return text;
}

}  // namespace cefedition
