// include/cef_render_process_handler.h over the C API.

#include "include/cef_render_process_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefRenderProcessHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefRenderProcessHandler::OnWebKitInitialized>(functions.on_web_kit_initialized);
  cefbinding::Bind<&CefRenderProcessHandler::OnBrowserCreated>(functions.on_browser_created);
  cefbinding::Bind<&CefRenderProcessHandler::OnBrowserDestroyed>(functions.on_browser_destroyed);
  cefbinding::Bind<&CefRenderProcessHandler::GetLoadHandler>(functions.get_load_handler);
  cefbinding::Bind<&CefRenderProcessHandler::OnProcessMessageReceived>(
      functions.on_process_message_received);
}

}  // namespace cefbinding
