// include/cef_cookie.h of CEF 123, as far as it is used here: the
// cookie store, its visitors and callbacks.
#pragma once

#include <vector>

#include "include/cef_base.h"
#include "include/cef_callback.h"

class CefCookieVisitor;
class CefSetCookieCallback;
class CefDeleteCookiesCallback;

// Reads and writes the cookies of one store. Any thread of the browser process.
class CefCookieManager : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefCookieManager> GetGlobalManager(CefRefPtr<CefCompletionCallback> callback);
  virtual bool VisitAllCookies(CefRefPtr<CefCookieVisitor> visitor) = 0;
  virtual bool VisitUrlCookies(const CefString& url,
                               bool includeHttpOnly,
                               CefRefPtr<CefCookieVisitor> visitor) = 0;
  virtual bool SetCookie(const CefString& url,
                         const CefCookie& cookie,
                         CefRefPtr<CefSetCookieCallback> callback) = 0;
  virtual bool DeleteCookies(const CefString& url,
                             const CefString& cookie_name,
                             CefRefPtr<CefDeleteCookiesCallback> callback) = 0;
  virtual bool FlushStore(CefRefPtr<CefCompletionCallback> callback) = 0;
};

// Visits cookies on the UI thread; Visit returns false to stop. Never called when there are none.
class CefCookieVisitor : public virtual CefBaseRefCounted {
 public:
  virtual bool Visit(const CefCookie& cookie, int count, int total, bool& deleteCookie) = 0;
};

// Is told whether a cookie was stored.
class CefSetCookieCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnComplete(bool success) = 0;
};

// Is told how many cookies were deleted, or -1 if that is unknown.
class CefDeleteCookiesCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnComplete(int num_deleted) = 0;
};
