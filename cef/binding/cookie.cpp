// include/cef_cookie.h over the C API.

#include "include/cef_cookie.h"

#include "binding.h"

namespace cefbinding {
namespace {

class CookieManagerObject final : public LibraryObject<CefCookieManager> {
 public:
  explicit CookieManagerObject(Struct* object) : LibraryObject(object) {}

  bool VisitAllCookies(CefRefPtr<CefCookieVisitor> visitor) override {
    return Call(&Struct::visit_all_cookies, visitor);
  }
  bool VisitUrlCookies(const CefString& url,
                       bool includeHttpOnly,
                       CefRefPtr<CefCookieVisitor> visitor) override {
    return Call(&Struct::visit_url_cookies, Needed(url), includeHttpOnly, visitor);
  }
  bool SetCookie(const CefString& url,
                 const CefCookie& cookie,
                 CefRefPtr<CefSetCookieCallback> callback) override {
    return Call(&Struct::set_cookie, Needed(url), cookie, callback);
  }
  bool DeleteCookies(const CefString& url,
                     const CefString& cookie_name,
                     CefRefPtr<CefDeleteCookiesCallback> callback) override {
    return Call(&Struct::delete_cookies, url, cookie_name, callback);
  }
  bool FlushStore(CefRefPtr<CefCompletionCallback> callback) override {
    return Call(&Struct::flush_store, callback);
  }
};

}  // namespace

template <>
CefRefPtr<CefCookieManager> Counterpart<CefCookieManager>::LibraryClass::Wrap(Struct* object) {
  return new CookieManagerObject(object);
}

template <>
void Counterpart<CefCookieVisitor>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefCookieVisitor::Visit>(functions.visit);
}

template <>
void Counterpart<CefSetCookieCallback>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefSetCookieCallback::OnComplete>(functions.on_complete);
}

template <>
void Counterpart<CefDeleteCookiesCallback>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefDeleteCookiesCallback::OnComplete>(functions.on_complete);
}

}  // namespace cefbinding
