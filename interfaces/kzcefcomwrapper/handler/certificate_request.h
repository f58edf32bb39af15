// A server's request for a client certificate, while the user chooses.
#pragma once

#include "handler/kz_cef_client_handler.h"
#include "handler/parked_request.h"

namespace kzcef {

class CertificateRequest final : public ParkedRequest {
 public:
  // `site` names the asking server to the user. `handler` is kept, so that the address in the
  // message to the host leads here for as long as the request waits, whatever becomes of the
  // browser.
  CertificateRequest(CefRefPtr<kzCefClientHandler> handler,
                     const CefString& site,
                     const CefRequestHandler::X509CertificateList& certificates,
                     CefRefPtr<CefSelectClientCertificateCallback> callback);

  std::optional<int> Ask(HWND main_window) noexcept override;
  // Gives CEF the certificate at index `choice` of this request's own list, or none where there is
  // no such index. When a request is freed without an answer, CEF goes on with no certificate, too.
  void Answer(int choice) noexcept override;

 private:
  CefRefPtr<kzCefClientHandler> handler_;
  const CefString site_;
  CefRequestHandler::X509CertificateList certificates_;
  CefRefPtr<CefSelectClientCertificateCallback> callback_;
};

}  // namespace kzcef
