#include "devtools/handler_choice.h"

namespace cefedition {

CefRefPtr<CefResourceRequestHandler> ChooseHandler(
    const CefRefPtr<CefRequestHandler>& of_client,
    const CefRefPtr<CefRequestContextHandler>& of_context,
    const CefRefPtr<CefBrowser>& browser,
    const CefRefPtr<CefFrame>& frame,
    const CefRefPtr<CefRequest>& request,
    bool is_navigation,
    bool is_download,
    const std::string& initiator,
    bool& disable_default_handling) {
  CefRefPtr<CefResourceRequestHandler> handler;
  if (of_client) {
    handler = of_client->GetResourceRequestHandler(
        browser, frame, request, is_navigation, is_download, initiator, disable_default_handling);
  }
  if (!handler && of_context) {
    handler = of_context->GetResourceRequestHandler(
        browser, frame, request, is_navigation, is_download, initiator, disable_default_handling);
  }
  return handler;
}

}  // namespace cefedition
