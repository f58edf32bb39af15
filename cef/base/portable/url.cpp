#include "url.h"

#include <vector>

#include "ascii.h"
#include "host.h"
#include "utf.h"

namespace cefedition {
namespace {

// What a part of a URL may not hold as it is, besides controls and characters beyond ASCII.
constexpr std::string_view kNotInOpaque;
constexpr std::string_view kNotInPath = " \"#<>?`{}";
constexpr std::string_view kNotInQuery = " \"#'<>";
constexpr std::string_view kNotInFragment = " \"<>`";
constexpr std::string_view kNotInUserInfo = " \"#<>?`{}/:;=@[\\]^|";

struct StandardScheme {
  std::string_view name;
  std::string_view default_port;
};

constexpr StandardScheme kStandardSchemes[] = {
    {"http", "80"},       {"https", "443"},
    {"ws", "80"},         {"wss", "443"},
    {"ftp", "21"},        {"file", ""},
    {"chrome", ""},       {"chrome-untrusted", ""},
    {"devtools", ""},     {"chrome-extension", ""},
    {"chrome-error", ""}, {"chrome-search", ""},
};

const StandardScheme* FindStandard(std::string_view scheme) {
  const auto* const found =
      std::find_if(std::begin(kStandardSchemes), std::end(kStandardSchemes),
                   [&](const StandardScheme& known) { return known.name == scheme; });
  return found == std::end(kStandardSchemes) ? nullptr : found;
}

bool IsSlash(char c) {
  return c == '/' || c == '\\';
}

std::string Escape(std::string_view text, std::string_view not_allowed) {
  std::string result;
  for (const char c : text) {
    const auto value = static_cast<unsigned char>(c);
    if (value < 0x20 || value >= 0x7F || not_allowed.find(c) != std::string_view::npos) {
      AppendEscaped(c, &result);
    } else {
      result.push_back(c);
    }
  }
  return result;
}

// Valid UTF-8 without blanks at the ends and without line breaks and tabs anywhere.
std::string Clean(std::string_view text) {
  const auto is_blank = [](char c) { return static_cast<unsigned char>(c) <= 0x20; };
  while (!text.empty() && is_blank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && is_blank(text.back())) {
    text.remove_suffix(1);
  }
  std::string clean = Utf16ToUtf8(Utf8ToUtf16(text));
  std::erase_if(clean, [](char c) { return c == '\t' || c == '\n' || c == '\r'; });
  return clean;
}

// The scheme before the first colon; empty if there is none.
std::string_view SchemeOf(std::string_view text) {
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0 || !IsAlpha(text[0])) {
    return std::string_view();
  }
  const std::string_view scheme = text.substr(0, colon);
  const bool valid = std::all_of(scheme.begin(), scheme.end(), [](char c) {
    return IsAlpha(c) || IsDigit(c) || c == '+' || c == '-' || c == '.';
  });
  return valid ? scheme : std::string_view();
}

// Cuts query and fragment off |text|.
void TakeTail(std::string_view* text, std::string_view not_in_query, Url* url) {
  const bool weak = not_in_query.empty();
  const size_t hash = text->find('#');
  if (hash != std::string_view::npos) {
    url->has_fragment = true;
    url->fragment = Escape(text->substr(hash + 1), weak ? kNotInOpaque : kNotInFragment);
    *text = text->substr(0, hash);
  }
  const size_t mark = text->find('?');
  if (mark != std::string_view::npos) {
    url->has_query = true;
    url->query = Escape(text->substr(mark + 1), not_in_query);
    *text = text->substr(0, mark);
  }
}

bool IsDriveLetter(std::string_view segment) {
  return segment.size() == 2 && IsAlpha(segment[0]) && (segment[1] == ':' || segment[1] == '|');
}

// "%2e" counts as ".".
int CountDots(std::string_view segment) {
  int dots = 0;
  for (size_t pos = 0; pos < segment.size(); ++dots) {
    if (segment[pos] == '.') {
      ++pos;
    } else if (EscapedByte(segment, pos) == '.') {
      pos += 3;
    } else {
      return 0;
    }
  }
  return dots;
}

std::string CanonicalPath(std::string_view path, bool is_file) {
  std::vector<std::string> segments;
  bool open = true;
  if (!path.empty() && IsSlash(path.front())) {
    path.remove_prefix(1);
  }
  // The drive is no folder that ".." could leave.
  const auto has_only_drive = [&] {
    return is_file && segments.size() == 1 && IsDriveLetter(segments[0]);
  };
  while (open) {
    const size_t slash = path.find_first_of("/\\");
    const std::string_view segment = path.substr(0, slash);
    open = slash != std::string_view::npos;
    path.remove_prefix(open ? slash + 1 : path.size());
    const int dots = CountDots(segment);
    if (dots == 1 || dots == 2) {
      if (dots == 2 && !segments.empty() && !has_only_drive()) {
        segments.pop_back();
      }
      if (!open) {
        segments.emplace_back();
      }
    } else if (is_file && segments.empty() && IsDriveLetter(segment)) {
      segments.push_back(std::string(1, static_cast<char>(ToLowerAscii(segment[0]) - 'a' + 'A')) +
                         ":");
    } else {
      segments.push_back(Escape(segment, kNotInPath));
    }
  }
  std::string result;
  for (const std::string& segment : segments) {
    result += "/" + segment;
  }
  return result;
}

bool ReadPort(std::string_view text, std::string_view default_port, Url* url) {
  unsigned port = 0;
  for (const char c : text) {
    if (!IsDigit(c)) {
      return false;
    }
    port = port * 10 + static_cast<unsigned>(c - '0');
    if (port > 65535) {
      return false;
    }
  }
  if (!text.empty() && std::to_string(port) != default_port) {
    url->port = std::to_string(port);
  }
  return true;
}

bool ReadAuthority(std::string_view text, const StandardScheme& scheme, Url* url) {
  const size_t at = text.rfind('@');
  if (at != std::string_view::npos) {
    const std::string_view user_info = text.substr(0, at);
    const size_t colon = user_info.find(':');
    url->username = Escape(user_info.substr(0, colon), kNotInUserInfo);
    if (colon != std::string_view::npos) {
      url->password = Escape(user_info.substr(colon + 1), kNotInUserInfo);
    }
    text.remove_prefix(at + 1);
  }
  const size_t bracket = text.rfind(']');
  const size_t colon = text.find(':', bracket == std::string_view::npos ? 0 : bracket);
  if (colon != std::string_view::npos &&
      !ReadPort(text.substr(colon + 1), scheme.default_port, url)) {
    return false;
  }
  const std::string_view name = text.substr(0, colon);
  if (name.empty()) {
    return scheme.name == "file" && at == std::string_view::npos;
  }
  const std::optional<std::string> host = CanonicalHost(name);
  if (!host || (scheme.name == "file" && !url->port.empty())) {
    return false;
  }
  url->host = *host;
  return true;
}

bool ReadStandard(std::string_view rest, const StandardScheme& scheme, Url* url) {
  TakeTail(&rest, kNotInQuery, url);
  const bool is_file = scheme.name == "file";
  size_t slashes = 0;
  while (slashes < rest.size() && IsSlash(rest[slashes]) && (!is_file || slashes < 2)) {
    ++slashes;
  }
  std::string_view path = rest.substr(is_file && slashes < 2 ? 0 : slashes);
  // A file URL may name the drive where others have the host, or nothing before the path.
  const bool has_authority =
      !is_file || (slashes == 2 && !IsDriveLetter(path.substr(0, path.find_first_of("/\\"))));
  if (has_authority) {
    const std::string_view authority = path.substr(0, path.find_first_of("/\\"));
    path.remove_prefix(authority.size());
    if (!ReadAuthority(authority, scheme, url)) {
      return false;
    }
  }
  url->path = CanonicalPath(path, is_file);
  return true;
}

void WriteSpec(Url* url) {
  std::string& spec = url->spec;
  spec = url->scheme + ":";
  if (url->is_standard) {
    spec += "//";
    if (!url->username.empty() || !url->password.empty()) {
      spec += url->username + (url->password.empty() ? "" : ":" + url->password) + "@";
    }
    spec += url->host + (url->port.empty() ? "" : ":" + url->port);
  }
  spec += url->path;
  if (url->has_query) {
    spec += "?" + url->query;
  }
  if (url->has_fragment) {
    spec += "#" + url->fragment;
  }
}

// The URL up to and including its path.
std::string WithoutTail(const Url& url) {
  return url.spec.substr(0, url.spec.find_first_of("?#"));
}

std::string WithoutFragment(const Url& url) {
  return url.spec.substr(0, url.spec.find('#'));
}

}  // namespace

std::optional<Url> ParseUrl(std::string_view text) {
  const std::string clean = Clean(text);
  const std::string_view scheme = SchemeOf(clean);
  if (scheme.empty()) {
    return std::nullopt;
  }
  Url url;
  url.scheme = ToLowerAscii(scheme);
  std::string_view rest = std::string_view(clean).substr(scheme.size() + 1);
  if (const StandardScheme* const standard = FindStandard(url.scheme)) {
    url.is_standard = true;
    if (!ReadStandard(rest, *standard, &url)) {
      return std::nullopt;
    }
  } else {
    TakeTail(&rest, kNotInOpaque, &url);
    url.path = Escape(rest, kNotInOpaque);
  }
  WriteSpec(&url);
  return url;
}

std::optional<Url> ResolveUrl(const Url& base, std::string_view text) {
  const std::string clean = Clean(text);
  std::string_view relative = clean;
  const std::string_view scheme = SchemeOf(relative);
  if (!scheme.empty()) {
    // "http:page" is relative to an HTTP URL, as the oldest browsers had it.
    const std::string_view rest = relative.substr(scheme.size() + 1);
    if (ToLowerAscii(scheme) != base.scheme || !base.is_standard ||
        (!rest.empty() && IsSlash(rest[0]))) {
      return ParseUrl(relative);
    }
    relative = rest;
  }
  if (relative.starts_with('#')) {
    return ParseUrl(WithoutFragment(base) + std::string(relative));
  }
  if (!base.is_standard) {
    return std::nullopt;
  }
  if (relative.empty()) {
    return ParseUrl(WithoutFragment(base));
  }
  if (relative.starts_with('?')) {
    return ParseUrl(WithoutTail(base) + std::string(relative));
  }
  if (relative.size() >= 2 && IsSlash(relative[0]) && IsSlash(relative[1])) {
    return ParseUrl(base.scheme + ":" + std::string(relative));
  }
  const std::string stem = WithoutTail(base);
  const size_t path_start = stem.size() - base.path.size();
  if (IsSlash(relative[0])) {
    // A file stays on its drive.
    const bool on_drive = base.scheme == "file" && IsDriveLetter(base.path.substr(1, 2));
    return ParseUrl(stem.substr(0, path_start + (on_drive ? 3 : 0)) + std::string(relative));
  }
  return ParseUrl(stem.substr(0, stem.rfind('/') + 1) + std::string(relative));
}

std::string OriginOf(const Url& url) {
  if (!url.is_standard) {
    return std::string();
  }
  return url.scheme + "://" + url.host + (url.port.empty() ? "" : ":" + url.port) + "/";
}

std::string AsReferrer(const Url& url) {
  if (url.scheme != "http" && url.scheme != "https") {
    return std::string();
  }
  Url referrer = url;
  referrer.username.clear();
  referrer.password.clear();
  referrer.has_fragment = false;
  WriteSpec(&referrer);
  return referrer.spec;
}

std::optional<Url> MakeUrl(const UrlParts& parts) {
  if (parts.scheme.empty() || parts.host.empty()) {
    return std::nullopt;
  }
  std::string text = parts.scheme + "://";
  if (!parts.username.empty()) {
    text += parts.username + (parts.password.empty() ? "" : ":" + parts.password) + "@";
  }
  text += parts.host + (parts.port.empty() ? "" : ":" + parts.port) + parts.path;
  if (!parts.query.empty()) {
    text += "?" + parts.query;
  }
  if (!parts.fragment.empty()) {
    text += "#" + parts.fragment;
  }
  return ParseUrl(text);
}

}  // namespace cefedition
