// include/cef_request_context.h of CEF 123, as far as it is used here: what browsers share.
#pragma once

#include <vector>

#include "include/cef_callback.h"
#include "include/cef_cookie.h"
#include "include/cef_preference.h"
#include "include/cef_values.h"

// What a set of browsers shares: cookies, cache, preferences.
class CefRequestContext : public CefPreferenceManager {
 public:
  static CefRefPtr<CefRequestContext> GetGlobalContext();
  virtual bool IsSame(CefRefPtr<CefRequestContext> other) = 0;
  virtual bool IsSharingWith(CefRefPtr<CefRequestContext> other) = 0;
  virtual bool IsGlobal() = 0;
  virtual CefString GetCachePath() = 0;
  virtual CefRefPtr<CefCookieManager> GetCookieManager(
      CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual void ClearCertificateExceptions(CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual void ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual void CloseAllConnections(CefRefPtr<CefCompletionCallback> callback) = 0;
};
