// include/cef_request_handler.h over the C API.

#include "include/cef_request_handler.h"

#include "binding.h"
#include "favicon_requests.h"
#include "js_dialog_handler.h"

namespace cefbinding {
namespace {

class SelectClientCertificateCallbackObject final
    : public LibraryObject<CefSelectClientCertificateCallback> {
 public:
  explicit SelectClientCertificateCallbackObject(Struct* object) : LibraryObject(object) {}

  void Select(CefRefPtr<CefX509Certificate> cert) override { Call(&Struct::select, cert); }
};

}  // namespace

template <>
CefRefPtr<CefSelectClientCertificateCallback>
Counterpart<CefSelectClientCertificateCallback>::LibraryClass::Wrap(Struct* object) {
  return new SelectClientCertificateCallbackObject(object);
}

namespace {

using RequestHandler = capi::cef_request_handler_t;

CefRequestHandler& HandlerOf(RequestHandler* self) {
  return *ClientObject<CefRequestHandler>::ObjectOf(self);
}

// A navigation takes its page's dialog down, which would hold it up for ever: the page waits for an
// answer.
int CEF_CALLBACK OnBeforeBrowse(RequestHandler* self,
                                capi::cef_browser_t* browser,
                                capi::cef_frame_t* frame,
                                capi::cef_request_t* request,
                                int user_gesture,
                                int is_redirect) {
  if (browser && frame && frame->is_main(frame)) {
    DismissDialogOf(browser->get_identifier(browser));
  }
  return CallEntry<&CefRequestHandler::OnBeforeBrowse, int>(self, browser, frame, request,
                                                            user_gesture, is_redirect);
}

// The client is not asked about a page's picture that it has not asked for.
template <class R>
R CEF_CALLBACK GetResourceRequestHandler(RequestHandler* self,
                                         capi::cef_browser_t* browser,
                                         capi::cef_frame_t* frame,
                                         capi::cef_request_t* request,
                                         int is_navigation,
                                         int is_download,
                                         cef_string_utf16_t* request_initiator,
                                         int* disable_default_handling) {
  if (request->get_resource_type(request) == RT_FAVICON) {
    const auto known_browser = Rewrap<CefBrowser>(browser);
    const auto known_frame = Rewrap<CefFrame>(frame);
    const auto known_request = Rewrap<CefRequest>(request);
    const int id = known_browser ? known_browser->GetIdentifier() : 0;
    if (!IsExpectedFavicon(id, *known_request)) {
      return ToEngine<R>(Refusal());
    }
    Incoming<bool&> disables(disable_default_handling);
    return Contain([&] {
      return ToEngine<R>(HandlerOf(self).GetResourceRequestHandler(
          known_browser, known_frame, known_request, is_navigation != 0, is_download != 0,
          CefString(request_initiator), disables.Get()));
    });
  }
  return CallEntry<&CefRequestHandler::GetResourceRequestHandler, R>(
      self, browser, frame, request, is_navigation, is_download, request_initiator,
      disable_default_handling);
}

// A certificate error that the client leaves to CEF was the end of the load with CEF 123. The
// engine would show a page of Chrome's with a way around the error.
int CEF_CALLBACK OnCertificateError(RequestHandler* self,
                                    capi::cef_browser_t* browser,
                                    int cert_error,
                                    cef_string_utf16_t* request_url,
                                    capi::cef_sslinfo_t* ssl_info,
                                    capi::cef_callback_t* callback) {
  const auto answer = Rewrap<CefCallback>(callback);
  const bool taken = Contain([&] {
    return HandlerOf(self).OnCertificateError(
        Rewrap<CefBrowser>(browser), static_cast<cef_errorcode_t>(cert_error),
        CefString(request_url), Rewrap<CefSSLInfo>(ssl_info), answer);
  });
  if (!taken) {
    answer->Cancel();
  }
  return 1;
}

// A choice that the client leaves to CEF fell on the first certificate with CEF 123. The engine
// would show Chrome's chooser.
int CEF_CALLBACK
OnSelectClientCertificate(RequestHandler* self,
                          capi::cef_browser_t* browser,
                          int is_proxy,
                          cef_string_utf16_t* host,
                          int port,
                          uint64_t count,
                          capi::cef_x509certificate_t** structures,
                          capi::cef_select_client_certificate_callback_t* callback) {
  const auto certificates =
      RewrapAll<CefX509Certificate>(std::vector(structures, structures + count));
  const auto answer = Rewrap<CefSelectClientCertificateCallback>(callback);
  const bool taken = Contain([&] {
    return HandlerOf(self).OnSelectClientCertificate(Rewrap<CefBrowser>(browser), is_proxy != 0,
                                                     CefString(host), port, certificates, answer);
  });
  if (!taken) {
    answer->Select(certificates.empty() ? nullptr : certificates.front());
  }
  return 1;
}

// The engine adds an error code and its text, which CEF 123 does not know, and two reasons why a
// renderer never came into being, at which CEF 123 kept silent.
void CEF_CALLBACK OnRenderProcessTerminated(RequestHandler* self,
                                            capi::cef_browser_t* structure,
                                            uint32_t status,
                                            int /*error_code*/,
                                            cef_string_utf16_t* /*error_string*/) {
  const auto browser = Rewrap<CefBrowser>(structure);
  if (status <= TS_PROCESS_OOM) {
    Contain([&] {
      HandlerOf(self).OnRenderProcessTerminated(browser,
                                                static_cast<cef_termination_status_t>(status));
    });
  }
}

}  // namespace

template <>
void Counterpart<CefRequestHandler>::ClientClass::Bind(Struct& functions) {
  functions.on_before_browse = &OnBeforeBrowse;
  cefbinding::Bind<&CefRequestHandler::OnOpenURLFromTab>(functions.on_open_urlfrom_tab);
  functions.get_resource_request_handler =
      &GetResourceRequestHandler<decltype(functions.get_resource_request_handler(
          nullptr, nullptr, nullptr, nullptr, 0, 0, nullptr, nullptr))>;
  cefbinding::Bind<&CefRequestHandler::GetAuthCredentials>(functions.get_auth_credentials);
  functions.on_certificate_error = &OnCertificateError;
  functions.on_select_client_certificate = &OnSelectClientCertificate;
  cefbinding::Bind<&CefRequestHandler::OnRenderViewReady>(functions.on_render_view_ready);
  functions.on_render_process_terminated = &OnRenderProcessTerminated;
  cefbinding::Bind<&CefRequestHandler::OnDocumentAvailableInMainFrame>(
      functions.on_document_available_in_main_frame);
}

}  // namespace cefbinding
