#include "devtools/url_kinds.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "url.h"

namespace cefedition {
namespace {

constexpr std::array<std::string_view, 15> kBrowserSchemes = {
    "about", "blob",       "chrome", "chrome-error", "chrome-untrusted",
    "data",  "devtools",   "file",   "filesystem",   "http",
    "https", "javascript", "ws",     "wss",          "view-source",
};

}  // namespace

bool IsInterceptable(const std::string& url) {
  return url.starts_with("http:") || url.starts_with("https:");
}

bool IsForOtherPrograms(const std::string& url) {
  const std::optional<Url> parsed = ParseUrl(url);
  return parsed && parsed->scheme.size() > 1 &&
         std::find(kBrowserSchemes.begin(), kBrowserSchemes.end(), parsed->scheme) ==
             kBrowserSchemes.end();
}

}  // namespace cefedition
