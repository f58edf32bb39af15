// include/cef_request_context.h over the C API.

#include "include/cef_request_context.h"

#include "preference_methods.h"

namespace cefbinding {
namespace {

class RequestContextObject final : public PreferenceMethods<CefRequestContext> {
 public:
  explicit RequestContextObject(Struct* object) : PreferenceMethods(object) {}

  bool IsSame(CefRefPtr<CefRequestContext> other) override { return Call(&Struct::is_same, other); }
  bool IsSharingWith(CefRefPtr<CefRequestContext> other) override {
    return Call(&Struct::is_sharing_with, other);
  }
  bool IsGlobal() override { return Call(&Struct::is_global); }
  CefString GetCachePath() override { return Call(&Struct::get_cache_path); }
  CefRefPtr<CefCookieManager> GetCookieManager(CefRefPtr<CefCompletionCallback> callback) override {
    return Call(&Struct::get_cookie_manager, callback);
  }
  void ClearCertificateExceptions(CefRefPtr<CefCompletionCallback> callback) override {
    Call(&Struct::clear_certificate_exceptions, callback);
  }
  void ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback> callback) override {
    Call(&Struct::clear_http_auth_credentials, callback);
  }
  void CloseAllConnections(CefRefPtr<CefCompletionCallback> callback) override {
    Call(&Struct::close_all_connections, callback);
  }
};

}  // namespace

template <>
CefRefPtr<CefRequestContext> Counterpart<CefRequestContext>::LibraryClass::Wrap(Struct* object) {
  return new RequestContextObject(object);
}

}  // namespace cefbinding
