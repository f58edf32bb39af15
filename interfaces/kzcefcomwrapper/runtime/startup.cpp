// The order of a start: the host's switches and settings are copied, the cache directory is chosen
// and locked, and then CEF starts on the calling thread.

#include "runtime/startup.h"

#include <wrl/client.h>

#include <optional>
#include <string>

#include "include/cef_app.h"
#include "runtime/cache_directory.h"
#include "runtime/command_line_source.h"
#include "runtime/kz_cef_app.h"
#include "runtime/main_window.h"
#include "runtime/settings_copy.h"
#include "runtime/settings_reader.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/never_destroyed.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

// Set by the first start and never cleared: that it is set is what refuses a second one.
CefRefPtr<kzCefApp>& Application() {
  static const NeverDestroyed<CefRefPtr<kzCefApp>> application;
  return *application;
}

CommandLineArgs SwitchesOf(IKZCEFComSettings& settings) {
  CommandLineArgs args;
  Microsoft::WRL::ComPtr<ICommandLineSource> source;
  if (SUCCEEDED(settings.QueryInterface(__uuidof(ICommandLineSource),
                                        reinterpret_cast<void**>(source.GetAddressOf())))) {
    source->CopyCommandLineArgs(&args);
  }
  return args;
}

void UseCacheDirectory(const std::string& directory,
                       IKZCEFComSettings& host,
                       CefSettings& settings) {
  CefString(&settings.cache_path).FromString(directory);
  SetCachePath(Utf8ToWide(directory));
  const std::optional<std::wstring> log_file =
      SettingsReader(host).TextOrEmpty(&IKZCEFComSettings::get_LogFile);
  if (log_file && log_file->empty()) {
    CefString(&settings.log_file).FromString(directory + "\\debug.log");
  }
}

// From the start on the engine's threads run code of this library, so nobody may unload it: not the
// host, and not COM, which unloads every server's library when a thread gives up COM, in use or
// not.
void StayLoaded() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&StayLoaded), &module);
}

bool Start(IKZCEFComSettings& host) {
  StayLoaded();
  Application() = new kzCefApp;
  UseThisThreadAsTheHosts();
  CefSettings settings;
  settings.no_sandbox = 1;
  SetCommandLineArgTable(SwitchesOf(host));
  CopySettings(host, settings);
  if (ChooseCacheDirectory(CefString(&settings.cache_path).ToString())) {
    UseCacheDirectory(ChosenCacheDirectory(), host, settings);
  }
  return CefInitialize(CefMainArgs(), settings, Application(), nullptr);
}

}  // namespace

bool StartCefRuntime(HINSTANCE /*instance*/, IKZCEFComSettings* settings) noexcept {
  if (Application() || !settings) {
    return false;
  }
  try {
    return Start(*settings);
  } catch (...) {
    // A lock file that cannot be read or deleted, or no memory left: a failed start, like CEF's own
    // refusal.
    return false;
  }
}

}  // namespace kzcef
