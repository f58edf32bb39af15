// Credentials that a proxy asks for.
#include <utility>

#include "handler/auth_answer.h"
#include "handler/contained_notification.h"
#include "handler/in_out_text.h"
#include "handler/kz_async_proxy_handler.h"
#include "handler/kz_cef_client_handler.h"
#include "handler/secret_text.h"
#include "include/cef_task.h"
#include "utils/process_settings.h"

namespace kzcef {
namespace {

// A text that the host's handlers fill with a secret.
class SecretInOutText : public InOutText {
 public:
  SecretInOutText() : InOutText(std::wstring()) {}
  ~SecretInOutText() { WipeText(*address()); }
  SecretInOutText(const SecretInOutText&) = delete;
  SecretInOutText& operator=(const SecretInOutText&) = delete;
};

}  // namespace

bool kzCefClientHandler::GetAuthCredentials(CefRefPtr<CefBrowser> browser,
                                            const CefString& origin_url,
                                            bool is_proxy,
                                            const CefString& host,
                                            int port,
                                            const CefString& realm,
                                            const CefString& scheme,
                                            CefRefPtr<CefAuthCallback> callback) {
  if (!is_proxy) {
    return false;
  }
  AuthAnswer answer(std::move(callback));
  Contained([&] {
    if (IsKnownHostKind(HostKind())) {
      CefPostTask(TID_UI, new KzAsyncProxyHandler(std::move(answer)));
      return;
    }
    VARIANT_BOOL should_continue = VARIANT_FALSE;
    SecretInOutText username;
    SecretInOutText password;
    RaiseNotification(browser, [&](HostNotifications& notifications, HWND window) {
      InOutText origin_text(origin_url.ToWString());
      InOutText host_text(host.ToWString());
      InOutText realm_text(realm.ToWString());
      InOutText scheme_text(scheme.ToWString());
      VARIANT_BOOL is_proxy_flag = VARIANT_TRUE;
      notifications.GetAuthCredentialsNotify(window, origin_text.address(), &is_proxy_flag,
                                             host_text.address(), port, realm_text.address(),
                                             scheme_text.address(), &should_continue,
                                             username.address(), password.address());
    });
    // Deliberately strict: a host's 1 refuses as its 0 does.
    if (should_continue == VARIANT_TRUE) {
      answer.Continue(UncopiedCefString(ViewOf(*username.address())),
                      UncopiedCefString(ViewOf(*password.address())));
    }
  });
  return true;
}

}  // namespace kzcef
