// Appends the switches with which the browser process starts.

#include "runtime/kz_cef_app.h"

#include <string>

#include "include/cef_command_line.h"
#include "utils/hub_connector.h"
#include "utils/process_settings.h"
#include "utils/tracing.h"

namespace kzcef {
namespace {

void AppendHubProxy(CefCommandLine& command_line) {
  if (!IsHubOn()) {
    Trace(L"Hub is Off");
    return;
  }
  const std::wstring address = L"127.0.0.1:" + std::to_wstring(GetHubPort());
  command_line.AppendSwitchWithValue("proxy-server", address);
  Trace(L"Hub is On");
  Trace(L"Hub proxy-server - " + address);
}

void AppendHostSwitches(CefCommandLine& command_line) {
  for (const auto& [name, value] : CommandLineArgTable()) {
    if (name.empty()) {
      continue;
    }
    if (value.empty()) {
      command_line.AppendSwitch(name);
    } else {
      command_line.AppendSwitchWithValue(name, value);
    }
  }
}

}  // namespace

void kzCefApp::OnBeforeCommandLineProcessing(const CefString& /*process_type*/,
                                             CefRefPtr<CefCommandLine> command_line) {
  AppendHubProxy(*command_line);
  command_line->AppendSwitch("enable-print-preview");
  AppendHostSwitches(*command_line);
}

}  // namespace kzcef
