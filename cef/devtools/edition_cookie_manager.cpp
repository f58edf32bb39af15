// The cookie manager. The browser keeps the cookies; the manager does not reach them yet, and says
// so by answering as CEF does when cookies cannot be accessed.

#include "devtools/engine.h"
#include "devtools/engine_threads.h"
#include "include/cef_cookie.h"

namespace cefedition {
namespace {

class EditionCookieManager : public CefCookieManager {
 public:
  bool VisitAllCookies(CefRefPtr<CefCookieVisitor>) override { return false; }
  bool VisitUrlCookies(const CefString&, bool, CefRefPtr<CefCookieVisitor>) override {
    return false;
  }
  bool SetCookie(const CefString&, const CefCookie&, CefRefPtr<CefSetCookieCallback>) override {
    return false;
  }
  bool DeleteCookies(const CefString&,
                     const CefString&,
                     CefRefPtr<CefDeleteCookiesCallback>) override {
    return false;
  }
  bool FlushStore(CefRefPtr<CefCompletionCallback>) override { return false; }

  IMPLEMENT_REFCOUNTING(EditionCookieManager);
};

}  // namespace
}  // namespace cefedition

CefRefPtr<CefCookieManager> CefCookieManager::GetGlobalManager(
    CefRefPtr<CefCompletionCallback> callback) {
  if (!cefedition::Engine::Get()) {
    return nullptr;
  }
  if (callback) {
    cefedition::PostToUi([callback] { callback->OnComplete(); });
  }
  return new cefedition::EditionCookieManager;
}
