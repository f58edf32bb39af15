// Certificates that fail verification.
#include <string>

#include "handler/certificate_information.h"
#include "handler/contained_notification.h"
#include "handler/kz_cef_client_handler.h"
#include "include/wrapper/cef_helpers.h"

namespace kzcef {
namespace {

// The one site that may sign for itself: it stands for nobody and is there for tests.
constexpr char kSelfSignedSite[] = "https://selfsigned.test/";

// Makes ready what could be shown of the refused site. Deliberately nothing is loaded into the
// frame: the browser's own page on the error stays.
void PrepareInformation(const CefRefPtr<CefBrowser>& browser,
                        const CefRefPtr<CefSSLInfo>& ssl_info) {
  if (!browser || !ssl_info) {
    return;
  }
  const std::string information =
      CertificateInformation(ssl_info->GetX509Certificate(), ssl_info->GetCertStatus());
  const CefRefPtr<CefFrame> frame = browser->GetMainFrame();
}

}  // namespace

bool kzCefClientHandler::OnCertificateError(CefRefPtr<CefBrowser> browser,
                                            cef_errorcode_t cert_error,
                                            const CefString& request_url,
                                            CefRefPtr<CefSSLInfo> ssl_info,
                                            CefRefPtr<CefCallback> callback) {
  CEF_REQUIRE_UI_THREAD();
  return Contained(
      [&] {
        if (cert_error == ERR_CERT_AUTHORITY_INVALID &&
            request_url.ToString().starts_with(kSelfSignedSite)) {
          callback->Continue();
          return true;
        }
        PrepareInformation(browser, ssl_info);
        return false;
      },
      /*otherwise=*/false);
}

}  // namespace kzcef
