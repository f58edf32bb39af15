#include "devtools/kept_cookies.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include "devtools/cookie_rules.h"
#include "devtools/json_fields.h"
#include "devtools/log.h"

namespace cefedition {
namespace {

namespace fs = std::filesystem;

fs::path FileOf(const std::wstring& profile) {
  return fs::path(profile) / L"EditionCookies.json";
}

bool HasExpired(const Json& cookie) {
  const Json& expires = Field(cookie, "expires");
  const double now =
      std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
  return !BoolField(cookie, "session") && (!expires.is_number() || expires.get<double>() <= now);
}

}  // namespace

bool KeepCookies(const std::wstring& profile, const Json& cookies) {
  const fs::path file = FileOf(profile);
  std::error_code error;
  if (!cookies.is_array() || cookies.empty()) {
    fs::remove(file, error);
    return !error;
  }
  // Written beside and put in its place, so that a crash leaves the old file or the new one.
  fs::path fresh = file;
  fresh += L".new";
  {
    std::ofstream stream(fresh, std::ios::binary | std::ios::trunc);
    stream << cookies.dump();
    if (!stream.flush()) {
      Log(LOGSEVERITY_ERROR, "The cookies could not be kept");
      return false;
    }
  }
  fs::rename(fresh, file, error);
  if (error) {
    Log(LOGSEVERITY_ERROR, "The cookies could not be kept: " + error.message());
  }
  return !error;
}

Json ReadKeptCookies(const std::wstring& profile) {
  std::ifstream stream(FileOf(profile), std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  Json kept = Json::parse(text.str(), nullptr, /*allow_exceptions=*/false);
  return kept.is_array() ? kept : Json::array();
}

Json CookiesToBringBack(const Json& kept, const Json& present, bool with_session) {
  const auto is_there = [&](const Json& cookie) {
    return std::any_of(present.begin(), present.end(),
                       [&](const Json& other) { return IsSameCookie(cookie, other); });
  };
  Json missing = Json::array();
  for (const Json& cookie : kept) {
    if (cookie.is_object() && !HasExpired(cookie) &&
        (with_session || !BoolField(cookie, "session")) && !is_there(cookie)) {
      missing.push_back(CookieToRestore(cookie));
    }
  }
  return missing;
}

Json CookiesToKeep(const Json& cookies, bool session, bool lasting) {
  Json kept = Json::array();
  for (const Json& cookie : cookies) {
    if (BoolField(cookie, "session") ? session : lasting) {
      kept.push_back(cookie);
    }
  }
  return kept;
}

}  // namespace cefedition
