// The client certificate that a server asks for.
#include <memory>
#include <string>

#include "handler/certificate_request.h"
#include "handler/contained_notification.h"
#include "handler/host_thread_dispatcher.h"
#include "handler/kz_cef_client_handler.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {

bool kzCefClientHandler::OnSelectClientCertificate(
    CefRefPtr<CefBrowser> /*browser*/,
    bool /*isProxy*/,
    const CefString& host,
    int port,
    const X509CertificateList& certificates,
    CefRefPtr<CefSelectClientCertificateCallback> callback) {
  CEF_REQUIRE_UI_THREAD();
  if (certificates.size() == 1) {
    return false;
  }
  Contained([&] {
    const CefRefPtr<HostThreadDispatcher> dispatcher = this->dispatcher();
    // With a callback that nobody keeps, CEF goes on with no certificate: rather that than its own
    // choice, which would show the server one that the user has not chosen.
    if (!dispatcher) {
      return;
    }
    const std::string key = host.ToString() + ":" + std::to_string(port);
    // Kept: a request for a second server gets no message of its own while a first one is pending.
    const bool pending = dispatcher->HasPendingWork();
    const HostThreadDispatcher::Identifier identifier = dispatcher->ParkRequest(
        key, std::make_unique<CertificateRequest>(this, key, certificates, callback));
    if (identifier != 0 && !pending) {
      dispatcher->PostToMainWindow(identifier, this);
    }
  });
  return true;
}

}  // namespace kzcef
