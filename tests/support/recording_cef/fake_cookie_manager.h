// A cookie store in memory that calls back at once, or when a test wants it.
#pragma once

#include <utility>
#include <vector>

#include "include/cef_cookie.h"

namespace recording_cef {

// A cookie store for tests: visits the cookies that the test puts in and writes down what is asked.
// Every callback comes inside the call.
class FakeCookieManager final : public CefCookieManager {
 public:
  struct UrlVisit {
    CefString url;
    bool include_http_only = false;
  };
  struct StoredCookie {
    CefString url;
    CefCookie cookie;
  };

  std::vector<CefCookie> cookies;
  // When false, nothing can be visited or stored.
  bool is_accessible = true;
  // Keep visitors and callbacks instead of using them, for the test to do so later.
  bool keep_callbacks = false;

  int all_visits = 0;
  std::vector<UrlVisit> url_visits;
  std::vector<StoredCookie> stored;
  std::vector<std::pair<CefString, CefString>> deleted;
  int flush_count = 0;
  std::vector<CefRefPtr<CefCookieVisitor>> kept_visitors;
  std::vector<CefRefPtr<CefSetCookieCallback>> kept_set_callbacks;

  bool VisitAllCookies(CefRefPtr<CefCookieVisitor> visitor) override {
    ++all_visits;
    return is_accessible && Visit(visitor);
  }
  bool VisitUrlCookies(const CefString& url,
                       bool includeHttpOnly,
                       CefRefPtr<CefCookieVisitor> visitor) override {
    url_visits.push_back({url, includeHttpOnly});
    return is_accessible && Visit(visitor);
  }
  bool SetCookie(const CefString& url,
                 const CefCookie& cookie,
                 CefRefPtr<CefSetCookieCallback> callback) override {
    stored.push_back({url, cookie});
    if (callback && keep_callbacks) {
      kept_set_callbacks.push_back(callback);
    } else if (callback && is_accessible) {
      callback->OnComplete(true);
    }
    return is_accessible;
  }
  bool DeleteCookies(const CefString& url,
                     const CefString& cookie_name,
                     CefRefPtr<CefDeleteCookiesCallback> callback) override {
    deleted.emplace_back(url, cookie_name);
    if (callback && is_accessible) {
      callback->OnComplete(-1);
    }
    return is_accessible;
  }
  bool FlushStore(CefRefPtr<CefCompletionCallback> callback) override {
    ++flush_count;
    if (callback && is_accessible) {
      callback->OnComplete();
    }
    return is_accessible;
  }

 private:
  bool Visit(const CefRefPtr<CefCookieVisitor>& visitor) {
    if (keep_callbacks) {
      kept_visitors.push_back(visitor);
      return true;
    }
    const int total = static_cast<int>(cookies.size());
    std::vector<CefCookie> kept;
    bool going_on = true;
    for (int i = 0; i < total; ++i) {
      bool remove = false;
      going_on = going_on && visitor->Visit(cookies[static_cast<size_t>(i)], i, total, remove);
      if (!remove) {
        kept.push_back(cookies[static_cast<size_t>(i)]);
      }
    }
    cookies = std::move(kept);
    return true;
  }

  IMPLEMENT_REFCOUNTING(FakeCookieManager);
};

}  // namespace recording_cef
