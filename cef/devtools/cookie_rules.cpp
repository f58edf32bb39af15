#include "devtools/cookie_rules.h"

#include <algorithm>
#include <array>

#include "devtools/json_fields.h"

namespace cefedition {
namespace {

// From 1601 to 1970, which the two ways of counting time begin with.
constexpr double kEpochSeconds = 11644473600.0;
constexpr double kMicroseconds = 1e6;

// A moment long ago: a cookie that is stored with it is removed.
constexpr double kPast = 1.0;

// By the values of cef_cookie_same_site_t; unspecified is not said.
constexpr std::array<const char*, 4> kSameSite = {"", "None", "Lax", "Strict"};

bool IsBelow(const std::string& host, const std::string& domain) {
  return host.size() > domain.size() && host.ends_with(domain) &&
         host[host.size() - domain.size() - 1] == '.';
}

bool IsAddress(const std::string& host) {
  return host.starts_with('[') ||
         (!host.empty() && host.find_first_not_of("0123456789.") == std::string::npos);
}

bool IsEncrypted(const Url& url) {
  return url.scheme == "https" || url.scheme == "wss";
}

// Browsers trust the machine itself as they trust an encrypted connection.
bool IsTrusted(const Url& url) {
  return IsEncrypted(url) || url.host == "localhost" || url.host.ends_with(".localhost") ||
         url.host == "[::1]" || (IsAddress(url.host) && url.host.starts_with("127."));
}

bool MatchesDomain(const std::string& host, const std::string& domain) {
  if (!domain.starts_with('.')) {
    return host == domain;
  }
  const std::string name = domain.substr(1);
  return host == name || IsBelow(host, name);
}

bool MatchesPath(const std::string& path, const std::string& cookie_path) {
  if (!path.starts_with(cookie_path)) {
    return false;
  }
  return path.size() == cookie_path.size() || cookie_path.ends_with('/') ||
         path[cookie_path.size()] == '/';
}

// The path of a cookie that names none: the folder of the URL.
std::string DefaultPath(const Url& url) {
  const size_t slash = url.path.rfind('/');
  return slash == std::string::npos || slash == 0 ? "/" : url.path.substr(0, slash);
}

// The domain to store; nothing when `host` may not set cookies for it. A domain of one label, such
// as "com", is shared by strangers.
std::optional<std::string> DomainToStore(const std::string& host, const std::string& wanted) {
  std::string domain = wanted.starts_with('.') ? wanted.substr(1) : wanted;
  std::transform(domain.begin(), domain.end(), domain.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  const bool shared = domain.find('.') == std::string::npos;
  if (wanted.empty() || (domain == host && (shared || IsAddress(host)))) {
    return host;
  }
  if (shared || IsAddress(host) || (domain != host && !IsBelow(host, domain))) {
    return std::nullopt;
  }
  return "." + domain;
}

const char* PriorityName(cef_cookie_priority_t priority) {
  switch (priority) {
    case CEF_COOKIE_PRIORITY_LOW:
      return "Low";
    case CEF_COOKIE_PRIORITY_HIGH:
      return "High";
    default:
      return "Medium";
  }
}

double NumberField(const Json& object, const char* name) {
  const Json& value = Field(object, name);
  return value.is_number() ? value.get<double>() : 0;
}

}  // namespace

bool HasCookies(const Url& url) {
  return url.scheme == "http" || url.scheme == "https" || url.scheme == "ws" || url.scheme == "wss";
}

bool IsSentTo(const Json& cookie, const Url& url) {
  return HasCookies(url) && !cookie.contains("partitionKey") &&
         MatchesDomain(url.host, TextField(cookie, "domain")) &&
         MatchesPath(url.path, TextField(cookie, "path")) &&
         (!BoolField(cookie, "secure") || IsTrusted(url));
}

bool IsHostCookie(const Json& cookie) {
  return !TextField(cookie, "domain").starts_with('.');
}

std::optional<Json> CookieToStore(const Url& url, const CefCookie& cookie) {
  const std::optional<std::string> domain =
      DomainToStore(url.host, CefString(&cookie.domain).ToString());
  const std::string path = CefString(&cookie.path).ToString();
  const bool secure = cookie.secure != 0;
  if (!HasCookies(url) || url.host.empty() || !domain || (!path.empty() && path[0] != '/') ||
      (secure && !IsTrusted(url)) ||
      (!secure && cookie.same_site == CEF_COOKIE_SAME_SITE_NO_RESTRICTION)) {
    return std::nullopt;
  }
  Json stored = {
      {"name", CefString(&cookie.name).ToString()},
      {"value", CefString(&cookie.value).ToString()},
      {"domain", *domain},
      {"path", path.empty() ? DefaultPath(url) : path},
      {"secure", secure},
      {"httpOnly", cookie.httponly != 0},
      {"priority", PriorityName(cookie.priority)},
      {"sourceScheme", secure || IsEncrypted(url) ? "Secure" : "NonSecure"},
  };
  if (cookie.same_site > CEF_COOKIE_SAME_SITE_UNSPECIFIED &&
      cookie.same_site <= CEF_COOKIE_SAME_SITE_STRICT_MODE) {
    stored["sameSite"] = kSameSite.at(cookie.same_site);
  }
  if (cookie.has_expires) {
    const double seconds = static_cast<double>(cookie.expires.val) / kMicroseconds - kEpochSeconds;
    stored["expires"] = std::max(seconds, kPast);
  }
  return stored;
}

Json CookieToRestore(const Json& cookie) {
  Json stored = Json::object();
  for (const char* name : {"name", "value", "domain", "path", "secure", "httpOnly", "sameSite",
                           "priority", "sourceScheme", "sourcePort", "partitionKey"}) {
    if (cookie.contains(name)) {
      stored[name] = cookie[name];
    }
  }
  if (!BoolField(cookie, "session")) {
    stored["expires"] = NumberField(cookie, "expires");
  }
  return stored;
}

Json CookieToRemove(const Json& cookie) {
  Json removed = CookieToRestore(cookie);
  removed["value"] = "removed";
  removed["expires"] = kPast;
  return removed;
}

bool IsSameCookie(const Json& left, const Json& right) {
  const auto same = [&](const char* name) { return Field(left, name) == Field(right, name); };
  return same("name") && same("domain") && same("path") && same("partitionKey");
}

CefCookie ToCefCookie(const Json& cookie) {
  CefCookie result;
  CefString(&result.name).FromString(TextField(cookie, "name"));
  CefString(&result.value).FromString(TextField(cookie, "value"));
  CefString(&result.domain).FromString(TextField(cookie, "domain"));
  CefString(&result.path).FromString(TextField(cookie, "path"));
  result.secure = BoolField(cookie, "secure");
  result.httponly = BoolField(cookie, "httpOnly");
  result.has_expires = !BoolField(cookie, "session");
  if (result.has_expires) {
    result.expires.val =
        static_cast<int64_t>((NumberField(cookie, "expires") + kEpochSeconds) * kMicroseconds);
  }
  const auto* const same_site =
      std::find(kSameSite.begin(), kSameSite.end(), TextField(cookie, "sameSite"));
  result.same_site = same_site == kSameSite.end()
                         ? CEF_COOKIE_SAME_SITE_UNSPECIFIED
                         : static_cast<cef_cookie_same_site_t>(same_site - kSameSite.begin());
  const std::string priority = TextField(cookie, "priority");
  result.priority = priority == "Low"    ? CEF_COOKIE_PRIORITY_LOW
                    : priority == "High" ? CEF_COOKIE_PRIORITY_HIGH
                                         : CEF_COOKIE_PRIORITY_MEDIUM;
  return result;
}

}  // namespace cefedition
