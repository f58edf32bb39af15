// include/cef_client.h over the C API.

#include "include/cef_client.h"

#include "binding.h"
#include "js_dialog_handler.h"

namespace cefbinding {
namespace {

// Takes every default of `Handler`.
template <class Handler>
class IndifferentHandler : public Handler {
  IMPLEMENT_REFCOUNTING(IndifferentHandler);
};

class IndifferentDownloadHandler final : public CefDownloadHandler {
  void OnBeforeDownload(CefRefPtr<CefBrowser> /*browser*/,
                        CefRefPtr<CefDownloadItem> /*download_item*/,
                        const CefString& /*suggested_name*/,
                        CefRefPtr<CefBeforeDownloadCallback> /*callback*/) override {}

  IMPLEMENT_REFCOUNTING(IndifferentDownloadHandler);
};

// The client's handler, or one that leaves everything to CEF: where there is none the engine would
// do as Chrome does, without asking the binding, which knows what CEF 123 did.
template <auto Get, class Indifferent, class R>
void BindAlways(R(CEF_CALLBACK*& member)(capi::cef_client_t*)) {
  member = [](capi::cef_client_t* self) {
    auto handler = Contain([&] { return (*ClientObject<CefClient>::ObjectOf(self).*Get)(); });
    if (!handler) {
      handler = new Indifferent;
    }
    return ToEngine<R>(handler);
  };
}

}  // namespace

template <>
void Counterpart<CefClient>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefClient::GetContextMenuHandler>(functions.get_context_menu_handler);
  cefbinding::Bind<&CefClient::GetDisplayHandler>(functions.get_display_handler);
  BindAlways<&CefClient::GetDownloadHandler, IndifferentDownloadHandler>(
      functions.get_download_handler);
  cefbinding::Bind<&CefClient::GetDragHandler>(functions.get_drag_handler);
  cefbinding::Bind<&CefClient::GetFocusHandler>(functions.get_focus_handler);
  functions.get_jsdialog_handler = [](capi::cef_client_t*) {
    return ToEngine<decltype(Struct::get_jsdialog_handler(nullptr))>(JavaScriptDialogs());
  };
  cefbinding::Bind<&CefClient::GetKeyboardHandler>(functions.get_keyboard_handler);
  BindAlways<&CefClient::GetLifeSpanHandler, IndifferentHandler<CefLifeSpanHandler>>(
      functions.get_life_span_handler);
  cefbinding::Bind<&CefClient::GetLoadHandler>(functions.get_load_handler);
  BindAlways<&CefClient::GetRequestHandler, IndifferentHandler<CefRequestHandler>>(
      functions.get_request_handler);
  cefbinding::Bind<&CefClient::OnProcessMessageReceived>(functions.on_process_message_received);
}

}  // namespace cefbinding
