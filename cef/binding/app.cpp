// include/cef_app.h over the C API.

#include "include/cef_app.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefApp>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefApp::OnBeforeCommandLineProcessing>(
      functions.on_before_command_line_processing);
  cefbinding::Bind<&CefApp::GetBrowserProcessHandler>(functions.get_browser_process_handler);
  cefbinding::Bind<&CefApp::GetRenderProcessHandler>(functions.get_render_process_handler);
}

}  // namespace cefbinding
