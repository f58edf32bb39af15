#include "devtools/engine_command_line.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "devtools/text.h"
#include "devtools/unix_host.h"
#include "include/cef_command_line.h"

namespace cefedition {
namespace {

constexpr std::array kUsualPrograms = {
    "/usr/bin/chromium-headless-shell",
    "/usr/bin/chromium",
    "/usr/bin/google-chrome",
};

// Switches with which the browser does one thing and leaves, or that are the edition's to set.
constexpr std::array<std::string_view, 18> kWithheldSwitches = {
    "dump-dom",
    "help",
    "headless",
    "print-to-pdf",
    "product-version",
    "remote-debugging-address",
    "remote-debugging-io-pipes",
    "remote-debugging-pipe",
    "remote-debugging-socket-name",
    "repl",
    "screenshot",
    "timeout",
    "type",
    "user-data-dir",
    "version",
    "virtual-time-budget",
    "window-size",
    "force-device-scale-factor",
};

bool IsFile(const std::string& unix_path) {
  const DWORD attributes = GetFileAttributesW(ToWindowsPath(unix_path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring EnvironmentText(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

void AppendIfGiven(CefCommandLine& command_line, const char* name, const cef_string_t& value) {
  if (value.length > 0) {
    command_line.AppendSwitchWithValue(name, CefString(&value));
  }
}

void AppendSettings(CefCommandLine& command_line, const CefSettings& settings) {
  AppendIfGiven(command_line, "user-agent", settings.user_agent);
  AppendIfGiven(command_line, "lang", settings.locale);
  AppendIfGiven(command_line, "js-flags", settings.javascript_flags);
  if (settings.no_sandbox) {
    command_line.AppendSwitch("no-sandbox");
  }
  command_line.AppendSwitchWithValue("accept-lang", AcceptLanguagesOf(settings));
  if (settings.remote_debugging_port >= 1024 && settings.remote_debugging_port <= 65535) {
    command_line.AppendSwitchWithValue("remote-debugging-port",
                                       std::to_string(settings.remote_debugging_port));
  }
  switch (settings.log_severity) {
    case LOGSEVERITY_VERBOSE:
      command_line.AppendSwitchWithValue("v", "1");
      break;
    case LOGSEVERITY_WARNING:
      command_line.AppendSwitchWithValue("log-level", "1");
      break;
    case LOGSEVERITY_ERROR:
      command_line.AppendSwitchWithValue("log-level", "2");
      break;
    case LOGSEVERITY_FATAL:
      command_line.AppendSwitchWithValue("log-level", "3");
      break;
    default:
      break;
  }
}

}  // namespace

std::string FindBrowserProgram(std::string& error) {
  const std::wstring named = EnvironmentText(L"KZCEF_ENGINE_PATH");
  if (!named.empty()) {
    std::string program = named.front() == L'/' ? WideToUtf8(named) : ToUnixPath(named);
    if (IsFile(program)) {
      return program;
    }
    error = "KZCEF_ENGINE_PATH names \"" + WideToUtf8(named) + "\", which is no file";
    return {};
  }
  for (const char* program : kUsualPrograms) {
    if (IsFile(program)) {
      return program;
    }
  }
  error = "no browser is installed; install chromium-headless-shell or set KZCEF_ENGINE_PATH";
  return {};
}

std::vector<std::string> BuildBrowserArguments(const CefSettings& settings,
                                               CefRefPtr<CefApp> app,
                                               const std::string& unix_profile_path) {
  CefRefPtr<CefCommandLine> command_line = CefCommandLine::CreateCommandLine();
  command_line->InitFromString(GetCommandLineW());
  if (settings.command_line_args_disabled) {
    const CefString program = command_line->GetProgram();
    command_line->Reset();
    command_line->SetProgram(program);
  }
  AppendSettings(*command_line, settings);
  if (app) {
    app->OnBeforeCommandLineProcessing(CefString(), command_line);
  }

  std::vector<std::string> arguments;
  CefCommandLine::SwitchMap switches;
  command_line->GetSwitches(switches);
  for (const auto& [cef_name, cef_value] : switches) {
    const std::string name = cef_name.ToString();
    const std::string value = cef_value.ToString();
    if (std::find(kWithheldSwitches.begin(), kWithheldSwitches.end(), name) ==
        kWithheldSwitches.end()) {
      arguments.push_back("--" + name + (value.empty() ? "" : "=" + value));
    }
  }
  // All frames of a page share its process and with it one session. The other switches keep a
  // browser nobody looks at from talking to the network on its own.
  std::string disabled_features = "IsolateOrigins,site-per-process,PaintHolding,Translate";
  if (const std::string more = command_line->GetSwitchValue("disable-features").ToString();
      !more.empty()) {
    disabled_features += "," + more;
  }
  for (const std::string& argument :
       {std::string("--headless"), std::string("--remote-debugging-pipe"),
        "--user-data-dir=" + unix_profile_path, std::string("--disable-gpu"),
        std::string("--disable-quic"), std::string("--no-first-run"),
        std::string("--no-startup-window"), std::string("--disable-background-networking"),
        std::string("--disable-component-update"), std::string("--disable-sync"),
        std::string("--disable-site-isolation-trials"),
        "--disable-features=" + disabled_features}) {
    arguments.push_back(argument);
  }
  return arguments;
}

std::string AcceptLanguagesOf(const CefSettings& settings) {
  if (settings.accept_language_list.length > 0) {
    return CefString(&settings.accept_language_list).ToString();
  }
  const std::string locale = CefString(&settings.locale).ToString();
  if (locale.empty()) {
    return "en-US,en";
  }
  const size_t dash = locale.find('-');
  return dash == std::string::npos ? locale : locale + "," + locale.substr(0, dash);
}

std::string ComposeUserAgent(const std::string& browsers_own,
                             bool given_whole,
                             const std::string& product) {
  constexpr std::string_view kHeadlessName = "HeadlessChrome/";
  const size_t start = browsers_own.find(kHeadlessName);
  if (given_whole || start == std::string::npos) {
    return browsers_own;
  }
  const size_t end = std::min(browsers_own.find(' ', start), browsers_own.size());
  const std::string version =
      browsers_own.substr(start + kHeadlessName.size(), end - start - kHeadlessName.size());
  const std::string name = product.empty() ? "Chrome/" + version : product;
  return browsers_own.substr(0, start) + name + browsers_own.substr(end);
}

}  // namespace cefedition
