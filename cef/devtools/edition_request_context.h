#pragma once

#include <map>
#include <mutex>

#include "include/cef_request_context.h"
#include "include/cef_request_context_handler.h"

namespace cefedition {

/// A request context. The browser has one profile, so all contexts share its cookies and cache;
/// each has preferences of its own. Of these, "intl.accept_languages" of the global context reaches
/// the pages, the others are only kept. Any thread, except where CEF wants the UI thread.
class EditionRequestContext : public CefRequestContext {
 public:
  /// The global context, made anew by each start of the engine.
  static CefRefPtr<EditionRequestContext> Global();
  static void ResetGlobal();

  EditionRequestContext(bool is_global, CefRefPtr<CefRequestContextHandler> handler);

  bool HasPreference(const CefString& name) override;
  CefRefPtr<CefValue> GetPreference(const CefString& name) override;
  CefRefPtr<CefDictionaryValue> GetAllPreferences(bool include_defaults) override;
  bool CanSetPreference(const CefString& name) override;
  bool SetPreference(const CefString& name, CefRefPtr<CefValue> value, CefString& error) override;

  bool IsSame(CefRefPtr<CefRequestContext> other) override;
  bool IsSharingWith(CefRefPtr<CefRequestContext> other) override;
  bool IsGlobal() override;
  CefRefPtr<CefRequestContextHandler> GetHandler() override;
  CefString GetCachePath() override;
  CefRefPtr<CefCookieManager> GetCookieManager(CefRefPtr<CefCompletionCallback> callback) override;
  bool RegisterSchemeHandlerFactory(const CefString& scheme_name,
                                    const CefString& domain_name,
                                    CefRefPtr<CefSchemeHandlerFactory> factory) override;
  bool ClearSchemeHandlerFactories() override;
  void ClearCertificateExceptions(CefRefPtr<CefCompletionCallback> callback) override;
  void ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback> callback) override;
  void CloseAllConnections(CefRefPtr<CefCompletionCallback> callback) override;
  void ResolveHost(const CefString& origin, CefRefPtr<CefResolveCallback> callback) override;

 private:
  const bool is_global_;
  const CefRefPtr<CefRequestContextHandler> handler_;
  std::mutex lock_;
  std::map<std::string, CefRefPtr<CefValue>> preferences_;

  IMPLEMENT_REFCOUNTING(EditionRequestContext);
};

}  // namespace cefedition
