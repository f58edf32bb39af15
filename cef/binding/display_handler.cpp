// include/cef_display_handler.h over the C API.

#include "include/cef_display_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefDisplayHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDisplayHandler::OnAddressChange>(functions.on_address_change);
  cefbinding::Bind<&CefDisplayHandler::OnTitleChange>(functions.on_title_change);
  cefbinding::Bind<&CefDisplayHandler::OnFaviconURLChange>(functions.on_favicon_urlchange);
  cefbinding::Bind<&CefDisplayHandler::OnFullscreenModeChange>(functions.on_fullscreen_mode_change);
  cefbinding::Bind<&CefDisplayHandler::OnTooltip>(functions.on_tooltip);
  cefbinding::Bind<&CefDisplayHandler::OnStatusMessage>(functions.on_status_message);
  cefbinding::Bind<&CefDisplayHandler::OnConsoleMessage>(functions.on_console_message);
  cefbinding::Bind<&CefDisplayHandler::OnAutoResize>(functions.on_auto_resize);
  cefbinding::Bind<&CefDisplayHandler::OnLoadingProgressChange>(
      functions.on_loading_progress_change);
  cefbinding::Bind<&CefDisplayHandler::OnCursorChange>(functions.on_cursor_change);
  cefbinding::Bind<&CefDisplayHandler::OnMediaAccessChange>(functions.on_media_access_change);
}

}  // namespace cefbinding
