// include/cef_client.h over the C API.

#include "include/cef_client.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefClient>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefClient::GetContextMenuHandler>(functions.get_context_menu_handler);
  cefbinding::Bind<&CefClient::GetDisplayHandler>(functions.get_display_handler);
  cefbinding::Bind<&CefClient::GetDownloadHandler>(functions.get_download_handler);
  cefbinding::Bind<&CefClient::GetDragHandler>(functions.get_drag_handler);
  cefbinding::Bind<&CefClient::GetFocusHandler>(functions.get_focus_handler);
  cefbinding::Bind<&CefClient::GetKeyboardHandler>(functions.get_keyboard_handler);
  cefbinding::Bind<&CefClient::GetLifeSpanHandler>(functions.get_life_span_handler);
  cefbinding::Bind<&CefClient::GetLoadHandler>(functions.get_load_handler);
  cefbinding::Bind<&CefClient::GetRequestHandler>(functions.get_request_handler);
  cefbinding::Bind<&CefClient::OnProcessMessageReceived>(functions.on_process_message_received);
}

}  // namespace cefbinding
