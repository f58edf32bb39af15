// include/cef_resource_request_handler.h over the C API.

#include "include/cef_resource_request_handler.h"

#include "binding.h"
#include "external_protocol.h"
#include "request_detours.h"

namespace cefbinding {
namespace {

// The function behind one member of the structure, like Entry, for a function that is given the
// client's object.
template <auto Function, class Signature>
struct DetouredEntry;

template <class R,
          class... Arguments,
          R (*Function)(CefResourceRequestHandler&, Arguments...),
          class CR,
          class Struct,
          class... Parameters>
struct DetouredEntry<Function, CR(CEF_CALLBACK*)(Struct*, Parameters...)> {
  static CR CEF_CALLBACK Call(Struct* self, Parameters... parameters) {
    return Contain([&]() -> CR {
      CefResourceRequestHandler& client = *ClientObject<CefResourceRequestHandler>::ObjectOf(self);
      if constexpr (std::is_void_v<R>) {
        Function(client, Incoming<Arguments>(parameters).Get()...);
      } else {
        return ToEngine<CR>(Function(client, Incoming<Arguments>(parameters).Get()...));
      }
    });
  }
};

template <auto Function, class Signature>
void BindDetoured(Signature& member) {
  member = &DetouredEntry<Function, Signature>::Call;
}

}  // namespace

template <>
void Counterpart<CefResourceRequestHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefResourceRequestHandler::GetCookieAccessFilter>(
      functions.get_cookie_access_filter);
  BindDetoured<&OnBeforeResourceLoad>(functions.on_before_resource_load);
  cefbinding::Bind<&CefResourceRequestHandler::GetResourceHandler>(functions.get_resource_handler);
  BindDetoured<&OnResourceRedirect>(functions.on_resource_redirect);
  BindDetoured<&OnResourceResponse>(functions.on_resource_response);
  cefbinding::Bind<&CefResourceRequestHandler::GetResourceResponseFilter>(
      functions.get_resource_response_filter);
  BindDetoured<&OnResourceLoadComplete>(functions.on_resource_load_complete);
  functions.on_protocol_execution = [](Struct* self, capi::cef_browser_t* browser,
                                       capi::cef_frame_t* frame, capi::cef_request_t* structure,
                                       int* allow_os_execution) {
    const auto request = Rewrap<CefRequest>(structure);
    Contain([&] {
      bool allowed = *allow_os_execution != 0;
      *allow_os_execution = 0;
      ClientObject<CefResourceRequestHandler>::ObjectOf(self)->OnProtocolExecution(
          Rewrap<CefBrowser>(browser), Rewrap<CefFrame>(frame), request, allowed);
      if (allowed) {
        OpenExternally(request->GetURL());
      }
    });
  };
}

template <>
void Counterpart<CefCookieAccessFilter>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefCookieAccessFilter::CanSendCookie>(functions.can_send_cookie);
  cefbinding::Bind<&CefCookieAccessFilter::CanSaveCookie>(functions.can_save_cookie);
}

}  // namespace cefbinding
