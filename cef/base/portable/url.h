#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cefedition {

// A URL as the browser writes it (its |spec|) and the parts of that text, without delimiters.
struct Url {
  std::string spec;
  std::string scheme;
  std::string username;
  std::string password;
  // An IPv6 address keeps its brackets.
  std::string host;
  // Empty for the default port of the scheme.
  std::string port;
  std::string path;
  std::string query;
  std::string fragment;
  // Made of authority and path (http, https, ws, wss, ftp, file and the browser's own schemes), not
  // of an opaque path like about:, data: or a custom scheme.
  bool is_standard = false;
  // "?" and "#" may stand before nothing.
  bool has_query = false;
  bool has_fragment = false;
};

// Reads an absolute URL. Blanks around it and line breaks in it are dropped, scheme and host come
// out in lower case, "." and ".." segments are resolved, default ports dropped, and characters that
// a URL cannot hold are percent-encoded. Nothing for a text that is no URL.
std::optional<Url> ParseUrl(std::string_view text);

// Reads a URL that may be relative to |base|.
std::optional<Url> ResolveUrl(const Url& base, std::string_view text);

// "scheme://host:port/", empty for a URL that is not standard.
std::string OriginOf(const Url& url);

// What a request tells about the page it comes from: an HTTP URL without credentials and fragment,
// else nothing.
std::string AsReferrer(const Url& url);

// The parts of a URL that somebody wants put together.
struct UrlParts {
  std::string scheme;
  std::string username;
  std::string password;
  std::string host;
  std::string port;
  std::string path;
  std::string query;
  std::string fragment;
};

// Nothing when scheme or host is missing or the result is no URL.
std::optional<Url> MakeUrl(const UrlParts& parts);

}  // namespace cefedition
