#include "devtools/certificate_errors.h"

#include <atomic>

#include "devtools/browser_core.h"
#include "devtools/edition_browser.h"
#include "devtools/json_fields.h"
#include "devtools/net_error.h"
#include "include/cef_request_handler.h"

namespace cefedition {
namespace {

CefRefPtr<CefRequestHandler> HandlerOf(const BrowserCore& core) {
  const CefRefPtr<CefClient> client = core.client();
  return client ? client->GetRequestHandler() : nullptr;
}

/// What is known of the connection. The browser does not show the certificate of one that it has
/// not accepted.
class SslInfo : public CefSSLInfo {
 public:
  explicit SslInfo(cef_cert_status_t status) : status_(status) {}

  cef_cert_status_t GetCertStatus() override { return status_; }
  CefRefPtr<CefX509Certificate> GetX509Certificate() override { return nullptr; }

 private:
  const cef_cert_status_t status_;

  IMPLEMENT_REFCOUNTING(SslInfo);
};

/// The client's word, at once or later; let go of without use, it refuses. Any thread.
class CertificateCallback : public CefCallback {
 public:
  CertificateCallback(std::weak_ptr<BrowserCore> core,
                      int event_id,
                      cef_errorcode_t error,
                      std::string url)
      : core_(std::move(core)), event_id_(event_id), error_(error), url_(std::move(url)) {}
  ~CertificateCallback() override { Answer(false); }

  void Continue() override { Answer(true); }
  void Cancel() override { Answer(false); }

 private:
  void Answer(bool accept) {
    const std::shared_ptr<BrowserCore> core = core_.lock();
    if (answered_.exchange(true) || !core) {
      return;
    }
    core->Post([accept, event_id = event_id_, error = error_, url = url_](BrowserCore& open) {
      if (!accept) {
        open.OnCertificateRefused(url, error);
      }
      open.session().SendAtOnce(
          "Security.handleCertificateError",
          {{"eventId", event_id}, {"action", accept ? "continue" : "cancel"}});
    });
  }

  const std::weak_ptr<BrowserCore> core_;
  const int event_id_;
  const cef_errorcode_t error_;
  const std::string url_;
  std::atomic<bool> answered_{false};

  IMPLEMENT_REFCOUNTING(CertificateCallback);
};

}  // namespace

std::vector<std::pair<std::string, Json>> CertificateErrorCommands(const BrowserCore& core) {
  if (!HandlerOf(core)) {
    return {};
  }
  return {{"Security.enable", Json::object()},
          {"Security.setOverrideCertificateErrors", {{"override", true}}}};
}

void OnCertificateErrorEvent(BrowserCore& core, const Json& params) {
  const cef_errorcode_t error = NetErrorFromName(TextField(params, "errorType"));
  const std::string url = TextField(params, "requestURL");
  const CefRefPtr<CertificateCallback> callback =
      new CertificateCallback(core.weak_from_this(), IntField(params, "eventId"), error, url);
  const CefRefPtr<CefRequestHandler> handler = HandlerOf(core);
  if (!handler || !handler->OnCertificateError(core.browser(), error, url,
                                               new SslInfo(CertStatusOf(error)), callback)) {
    callback->Cancel();
  }
}

}  // namespace cefedition
