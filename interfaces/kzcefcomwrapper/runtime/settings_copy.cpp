// Copies property by property: each line says where a property goes, and under which condition.

#include "runtime/settings_copy.h"

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "runtime/settings_reader.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/path_text.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

void Assign(cef_string_t& field, const std::optional<std::wstring>& text) {
  if (text) {
    CefString(&field).FromWString(*text);
  }
}

// The host's program when it exists, otherwise the one installed beside this library.
std::wstring SubprocessPath(const std::optional<std::wstring>& configured) {
  if (configured && !configured->empty() && PathExists(WideToUtf8(*configured), false)) {
    return *configured;
  }
  const std::wstring module = GetModulePath(GetModuleHandleW(L"KZCEFComWrapper.dll"));
  return SubprocessPathBeside(std::wstring_view(module));
}

}  // namespace

void CopySettings(IKZCEFComSettings& source, CefSettings& target) {
  using Settings = IKZCEFComSettings;
  const SettingsReader read(source);

  CefString(&target.browser_subprocess_path)
      .FromWString(SubprocessPath(read.Text(&Settings::get_BrowserSubprocessPath)));
  if (const auto cache_path = read.Text(&Settings::get_CachePath)) {
    Assign(target.cache_path, cache_path);
    SetCachePath(*cache_path);
  }
  target.command_line_args_disabled = read.Flag(&Settings::get_CommandLineArgsDisabled);
  Assign(target.javascript_flags, read.Text(&Settings::get_JavascriptFlags));
  Assign(target.locale, read.Text(&Settings::get_Locale));
  Assign(target.locales_dir_path, read.Text(&Settings::get_LocalesDirPath));
  Assign(target.log_file, read.Text(&Settings::get_LogFile));
  if (const long severity = read.Number(&Settings::get_LogSeverity, 0); severity != 0) {
    target.log_severity = static_cast<cef_log_severity_t>(severity);
  }
  target.multi_threaded_message_loop = read.Flag(&Settings::get_MultiThreadedMessageLoop);
  target.pack_loading_disabled = read.Flag(&Settings::get_PackLoadingDisabled);
  target.persist_session_cookies = read.Flag(&Settings::get_PersistSessionCookies);
  if (const long port = read.Number(&Settings::get_RemoteDebuggingPort, 0);
      port >= 0 && port <= 65535) {
    target.remote_debugging_port = port;
  }
  Assign(target.resources_dir_path, read.Text(&Settings::get_ResourcesDirPath));
  target.uncaught_exception_stack_size = read.Number(&Settings::get_UncaughtExceptionStackSize, 0);
  Assign(target.user_agent, read.Text(&Settings::get_UserAgent));
  Assign(target.user_agent_product, read.Text(&Settings::get_UserAgentProduct));
  target.windowless_rendering_enabled = read.Flag(&Settings::get_WindowlessRenderingEnabled);
  if (const auto kind = read.Text(&Settings::get_ApplicationType)) {
    SetHostKind(*kind);
  }
  if (const auto languages = read.Text(&Settings::get_AcceptLanguageList);
      languages && !languages->empty()) {
    Assign(target.accept_language_list, languages);
    SetAcceptLanguageList(*languages);
    if (IsKnownHostKind(HostKind())) {
      SetAcceptLanguageOverridden(true);
    }
  }
  if (const auto path = read.Text(&Settings::get_LangResourceDllPath)) {
    SetLanguageResourcePath(*path);
  }
  if (const long port = read.Number(&Settings::get_HubPort, -1); port >= 0) {
    SetConfiguredHubPort(port);
  }
}

}  // namespace kzcef
