// include/cef_resource_request_handler.h over the C API.

#include "include/cef_resource_request_handler.h"

#include "binding.h"

namespace cefbinding {

template <>
void Counterpart<CefResourceRequestHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefResourceRequestHandler::GetCookieAccessFilter>(
      functions.get_cookie_access_filter);
  cefbinding::Bind<&CefResourceRequestHandler::OnBeforeResourceLoad>(
      functions.on_before_resource_load);
  cefbinding::Bind<&CefResourceRequestHandler::GetResourceHandler>(functions.get_resource_handler);
  cefbinding::Bind<&CefResourceRequestHandler::OnResourceRedirect>(functions.on_resource_redirect);
  cefbinding::Bind<&CefResourceRequestHandler::OnResourceResponse>(functions.on_resource_response);
  cefbinding::Bind<&CefResourceRequestHandler::GetResourceResponseFilter>(
      functions.get_resource_response_filter);
  cefbinding::Bind<&CefResourceRequestHandler::OnResourceLoadComplete>(
      functions.on_resource_load_complete);
  cefbinding::Bind<&CefResourceRequestHandler::OnProtocolExecution>(
      functions.on_protocol_execution);
}

template <>
void Counterpart<CefCookieAccessFilter>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefCookieAccessFilter::CanSendCookie>(functions.can_send_cookie);
  cefbinding::Bind<&CefCookieAccessFilter::CanSaveCookie>(functions.can_save_cookie);
}

}  // namespace cefbinding
