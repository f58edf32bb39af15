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
  const bool chosen = choice >= 0 && static_cast<size_t>(choice) < certificates_.size();
  Contained([&] {
    if (callback_) {
      callback_->Select(chosen ? certificates_[static_cast<size_t>(choice)] : nullptr);
    }
  });
}

}  // namespace kzcef
