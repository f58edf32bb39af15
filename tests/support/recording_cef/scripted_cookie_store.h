// A cookie store whose visits are a function of the test's.
#pragma once

#include <functional>
#include <utility>

#include "include/cef_cookie.h"

namespace recording_cef {

// A store that leaves what becomes of a visitor to its maker, and takes no cookies.
class ScriptedCookieStore final : public CefCookieManager {
 public:
  using Visit = std::function<bool(CefRefPtr<CefCookieVisitor>)>;
  explicit ScriptedCookieStore(Visit visit) : visit_(std::move(visit)) {}

  bool VisitAllCookies(CefRefPtr<CefCookieVisitor> visitor) override {
    return visit_(std::move(visitor));
  }
  bool VisitUrlCookies(const CefString&, bool, CefRefPtr<CefCookieVisitor> visitor) override {
    return visit_(std::move(visitor));
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

 private:
  const Visit visit_;

  IMPLEMENT_REFCOUNTING(ScriptedCookieStore);
};

}  // namespace recording_cef
