// include/cef_browser_process_handler.h over the C API.

#include "include/cef_browser_process_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefBrowserProcessHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefBrowserProcessHandler::OnContextInitialized>(
      functions.on_context_initialized);
  cefbinding::Bind<&CefBrowserProcessHandler::OnBeforeChildProcessLaunch>(
      functions.on_before_child_process_launch);
  cefbinding::Bind<&CefBrowserProcessHandler::OnAlreadyRunningAppRelaunch>(
      functions.on_already_running_app_relaunch);
}

}  // namespace cefbinding
