// The values and the one lock that guards them, and the names of the known kinds of host.

#include "utils/process_settings.h"

#include <wchar.h>

#include <array>
#include <mutex>
#include <utility>

#include "utils/never_destroyed.h"

namespace kzcef {
namespace {

// In the order in which a host's name is compared with them.
constexpr std::array kHostKinds = {L"KzxMeadow", L"KzxQuillAddinLoaded", L"KzxHarbor"};

struct Values {
  CommandLineArgs command_line_args;
  std::wstring host_kind;
  std::wstring cache_path;
  std::wstring language_resource_path;
  std::wstring accept_language_list;
  std::wstring cookie_language;
  bool accept_language_overridden = false;
  int hub_port = -1;
};

// The engine's threads read while the host may name itself again, so the texts need the lock.
std::mutex& Lock() {
  static const NeverDestroyed<std::mutex> lock;
  return *lock;
}

Values& Shared() {
  static const NeverDestroyed<Values> values;
  return *values;
}

template <typename T>
T Read(T Values::*value) {
  const std::lock_guard guard(Lock());
  return Shared().*value;
}

template <typename T>
void Write(T Values::*value, T replacement) {
  const std::lock_guard guard(Lock());
  Shared().*value = std::move(replacement);
}

}  // namespace

CommandLineArgs CommandLineArgTable() {
  return Read(&Values::command_line_args);
}

void SetCommandLineArgTable(CommandLineArgs args) {
  Write(&Values::command_line_args, std::move(args));
}

std::wstring HostKind() {
  return Read(&Values::host_kind);
}

void SetHostKind(std::wstring kind) {
  Write(&Values::host_kind, std::move(kind));
}

bool IsKnownHostKind(const std::wstring& text) {
  for (const wchar_t* kind : kHostKinds) {
    if (_wcsicmp(text.c_str(), kind) == 0) {
      return true;
    }
  }
  return false;
}

std::wstring CachePath() {
  return Read(&Values::cache_path);
}

void SetCachePath(std::wstring path) {
  Write(&Values::cache_path, std::move(path));
}

std::wstring LanguageResourcePath() {
  return Read(&Values::language_resource_path);
}

void SetLanguageResourcePath(std::wstring path) {
  Write(&Values::language_resource_path, std::move(path));
}

std::wstring AcceptLanguageList() {
  return Read(&Values::accept_language_list);
}

void SetAcceptLanguageList(std::wstring list) {
  Write(&Values::accept_language_list, std::move(list));
}

std::wstring CookieLanguage() {
  return Read(&Values::cookie_language);
}

void SetCookieLanguage(std::wstring language) {
  Write(&Values::cookie_language, std::move(language));
}

bool IsAcceptLanguageOverridden() {
  return Read(&Values::accept_language_overridden);
}

void SetAcceptLanguageOverridden(bool overridden) {
  Write(&Values::accept_language_overridden, overridden);
}

int ConfiguredHubPort() {
  return Read(&Values::hub_port);
}

void SetConfiguredHubPort(int port) {
  Write(&Values::hub_port, port);
}

}  // namespace kzcef
