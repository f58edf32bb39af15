#pragma once

#include <vector>

#include "include/cef_callback.h"
#include "include/cef_cookie.h"
#include "include/cef_preference.h"
#include "include/cef_values.h"

class CefRequestContextHandler;
class CefSchemeHandlerFactory;

// Receives the addresses of a host name.
class CefResolveCallback : public virtual CefBaseRefCounted {
 public:
  virtual void OnResolveCompleted(cef_errorcode_t result,
                                  const std::vector<CefString>& resolved_ips) = 0;
};

// What a set of browsers shares: cookies, cache, preferences.
class CefRequestContext : public CefPreferenceManager {
 public:
  static CefRefPtr<CefRequestContext> GetGlobalContext();
  static CefRefPtr<CefRequestContext> CreateContext(const CefRequestContextSettings& settings,
                                                    CefRefPtr<CefRequestContextHandler> handler);
  static CefRefPtr<CefRequestContext> CreateContext(CefRefPtr<CefRequestContext> other,
                                                    CefRefPtr<CefRequestContextHandler> handler);
  virtual bool IsSame(CefRefPtr<CefRequestContext> other) = 0;
  virtual bool IsSharingWith(CefRefPtr<CefRequestContext> other) = 0;
  virtual bool IsGlobal() = 0;
  virtual CefRefPtr<CefRequestContextHandler> GetHandler() = 0;
  virtual CefString GetCachePath() = 0;
  virtual CefRefPtr<CefCookieManager> GetCookieManager(
      CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual bool RegisterSchemeHandlerFactory(const CefString& scheme_name,
                                            const CefString& domain_name,
                                            CefRefPtr<CefSchemeHandlerFactory> factory) = 0;
  virtual bool ClearSchemeHandlerFactories() = 0;
  virtual void ClearCertificateExceptions(CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual void ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual void CloseAllConnections(CefRefPtr<CefCompletionCallback> callback) = 0;
  virtual void ResolveHost(const CefString& origin, CefRefPtr<CefResolveCallback> callback) = 0;
};
