// include/cef_request_handler.h over the C API.

#include "include/cef_request_handler.h"

#include "binding.h"

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

// The engine tells a renderer that could not be launched, or whose code was not intact, from one
// that ended abnormally; CEF 123 had one status for all three.
cef_termination_status_t KnownStatus(uint32_t status) {
  return status > TS_PROCESS_OOM ? TS_ABNORMAL_TERMINATION
                                 : static_cast<cef_termination_status_t>(status);
}

}  // namespace

template <>
void Counterpart<CefRequestHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefRequestHandler::OnBeforeBrowse>(functions.on_before_browse);
  cefbinding::Bind<&CefRequestHandler::OnOpenURLFromTab>(functions.on_open_urlfrom_tab);
  cefbinding::Bind<&CefRequestHandler::GetResourceRequestHandler>(
      functions.get_resource_request_handler);
  cefbinding::Bind<&CefRequestHandler::GetAuthCredentials>(functions.get_auth_credentials);
  functions.on_certificate_error = [](Struct* self, capi::cef_browser_t* browser, int cert_error,
                                    cef_string_utf16_t* request_url,
                                    capi::cef_sslinfo_t* ssl_info,
                                    capi::cef_callback_t* callback) {
  const auto answer = Rewrap<CefCallback>(callback);
  const bool taken = Contain([&] {
    return ClientObject<CefRequestHandler>::ObjectOf(self)->OnCertificateError(
        Rewrap<CefBrowser>(browser), static_cast<cef_errorcode_t>(cert_error),
        CefString(request_url), Rewrap<CefSSLInfo>(ssl_info), answer);
  });
  if (!taken) {
    answer->Cancel();
  }
  return 1;
};
  functions.on_select_client_certificate =
      [](Struct* self, capi::cef_browser_t* browser, int is_proxy, cef_string_utf16_t* host,
         int port, uint64_t count, capi::cef_x509certificate_t** structures,
         capi::cef_select_client_certificate_callback_t* callback) {
  const auto certificates =
      RewrapAll<CefX509Certificate>(std::vector(structures, structures + count));
  const auto answer = Rewrap<CefSelectClientCertificateCallback>(callback);
  const bool taken = Contain([&] {
    return ClientObject<CefRequestHandler>::ObjectOf(self)->OnSelectClientCertificate(Rewrap<CefBrowser>(browser), is_proxy != 0,
                                                     CefString(host), port, certificates, answer);
  });
  if (!taken) {
    answer->Select(certificates.empty() ? nullptr : certificates.front());
  }
  return 1;
      };
  cefbinding::Bind<&CefRequestHandler::OnRenderViewReady>(functions.on_render_view_ready);
  // The engine adds an error code and its text, which CEF 123 does not know.
  functions.on_render_process_terminated = [](Struct* self, capi::cef_browser_t* browser,
                                              uint32_t status, int /*error_code*/,
                                              cef_string_utf16_t* /*error_string*/) {
    CallEntry<&CefRequestHandler::OnRenderProcessTerminated, void>(self, browser,
                                                                   KnownStatus(status));
  };
  cefbinding::Bind<&CefRequestHandler::OnDocumentAvailableInMainFrame>(
      functions.on_document_available_in_main_frame);
}

}  // namespace cefbinding
