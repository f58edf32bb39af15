// Asks the user in the chooser's dialog, and gives CEF the chosen certificate once.

#include "handler/certificate_request.h"

#include <utility>

#include "dialogs/certificate_chooser.h"
#include "handler/contained_notification.h"

namespace kzcef {

CertificateRequest::CertificateRequest(CefRefPtr<kzCefClientHandler> handler,
                                       const CefString& site,
                                       const CefRequestHandler::X509CertificateList& certificates,
                                       CefRefPtr<CefSelectClientCertificateCallback> callback)
    : handler_(std::move(handler)),
      site_(site),
      certificates_(certificates),
      callback_(std::move(callback)) {}

std::optional<int> CertificateRequest::Ask(HWND main_window) noexcept {
  return ChooseCertificate(main_window, site_, certificates_);
}

void CertificateRequest::Answer(int choice) noexcept {
  const CefRefPtr<kzCefClientHandler> handler = std::exchange(handler_, nullptr);
  const auto certificates = std::exchange(certificates_, {});
  const auto callback = std::exchange(callback_, nullptr);
  const bool chosen = choice >= 0 && static_cast<size_t>(choice) < certificates.size();
  Contained([&] {
    if (callback) {
      callback->Select(chosen ? certificates[static_cast<size_t>(choice)] : nullptr);
    }
  });
}

}  // namespace kzcef
