#include "devtools/credentials.h"

#include <atomic>
#include <optional>
#include <utility>

#include "devtools/json_fields.h"
#include "include/cef_auth_callback.h"
#include "url.h"

namespace cefedition {
namespace {

using Send = std::function<void(const std::string& method, Json answer)>;

class AuthCallback : public CefAuthCallback {
 public:
  AuthCallback(std::string request_id, Send send)
      : request_id_(std::move(request_id)), send_(std::move(send)) {}
  ~AuthCallback() override { Cancel(); }

  void Continue(const CefString& username, const CefString& password) override {
    Answer({{"response", "ProvideCredentials"},
            {"username", username.ToString()},
            {"password", password.ToString()}});
  }
  void Cancel() override { Answer({{"response", "CancelAuth"}}); }

 private:
  void Answer(Json response) {
    if (!answered_.exchange(true)) {
      send_("Fetch.continueWithAuth",
            {{"requestId", request_id_}, {"authChallengeResponse", std::move(response)}});
    }
  }

  const std::string request_id_;
  const Send send_;
  std::atomic<bool> answered_{false};

  IMPLEMENT_REFCOUNTING(AuthCallback);
};

// A URL leaves the port of its scheme out.
int PortOf(const Url& url) {
  if (!url.port.empty()) {
    return std::atoi(url.port.c_str());
  }
  return url.scheme == "https" ? 443 : 80;
}

}  // namespace

void AskForCredentials(const CefRefPtr<CefRequestHandler>& handler,
                       const CefRefPtr<CefBrowser>& browser,
                       const Json& params,
                       Send send) {
  const Json& challenge = Field(params, "authChallenge");
  // The host that asks; where the page itself comes from is told beside it.
  const std::optional<Url> asking = ParseUrl(TextField(challenge, "origin"));
  const CefRefPtr<AuthCallback> callback =
      new AuthCallback(TextField(params, "requestId"), std::move(send));
  const bool taken = handler && asking &&
                     handler->GetAuthCredentials(
                         browser, TextField(Field(params, "request"), "url"),
                         TextField(challenge, "source") == "Proxy", asking->host, PortOf(*asking),
                         TextField(challenge, "realm"), TextField(challenge, "scheme"), callback);
  if (!taken) {
    callback->Cancel();
  }
}

}  // namespace cefedition
